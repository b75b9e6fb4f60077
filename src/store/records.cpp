#include "store/records.h"

#include <algorithm>

#include "store/fixed_string.h"

QByteArray visibleRecord(QByteArrayView bytes) {
    const qsizetype nul = bytes.indexOf('\0');
    return FixedString(files::recordLength, nul < 0 ? bytes : bytes.first(nul)).bytes();
}

QByteArray portField(qint16 port) {
    return FixedString(2, QByteArray::number(port)).bytes();
}

QByteArray routeRecord(const char* head, qint16 port) {
    FixedString r(files::recordLength, head);
    r.replace(4, portField(port));
    return r.bytes();
}

int fileNumberOf(RecordFile file, int fichier_perif) {
    switch (file) {
        case RecordFile::Peripheral:
            return fichier_perif;
        case RecordFile::Sales:
        case RecordFile::Kitchen:
            return files::sales;
        case RecordFile::Main:
            return files::main;
        case RecordFile::PortFile:
            return files::port;
    }
    return files::sales;
}

namespace {

std::vector<int> range(int first, int last) {
    std::vector<int> v;
    for (int n = first; n <= last; ++n) v.push_back(n);
    return v;
}

void addAll(std::vector<int>& to, const std::vector<int>& from) {
    to.insert(to.end(), from.begin(), from.end());
}

void tidy(std::vector<int>& v) {
    std::sort(v.begin(), v.end());
    v.erase(std::unique(v.begin(), v.end()), v.end());
}

// The ticket printer's records, the same in the station's file and the kitchen's.
std::vector<int> printerRecords() {
    std::vector<int> v = {rec::leftMargin.number,     rec::feedLines.number,
                          rec::paperCut.number,       rec::init1.number,
                          rec::route.number,          rec::printerKind.number,
                          rec::accentMode.number,     rec::init2.number,
                          rec::init3.number,          rec::serialSettings.number,
                          rec::usbFamily.number,      rec::boldOn.number,
                          rec::boldOff.number,        rec::italicOn.number,
                          rec::italicOff.number,      rec::defaultPrinterFont.number,
                          rec::drawerOnPrinter.number};
    addAll(v, range(rec::drawerPulseFirst, rec::drawerPulseLast));
    return v;
}

}  // namespace

std::vector<WritableRecords> writableRecords() {
    std::vector<WritableRecords> all;

    // WFICH142.WDO: the tool owns its initialisation (records 1 to 201).
    std::vector<int> main = range(1, 201);
    addAll(main, {rec::kitchenOwnPrinter.number, rec::standardInstallDone.number,
                  rec::labelPrinterUsed.number, rec::drawerPort.number, rec::drawerPulseMs.number,
                  rec::drawerClose.number, rec::drawerOpen.number, rec::drawerSettings.number,
                  rec::launchMailbox.number});
    tidy(main);
    all.push_back({QStringLiteral("WFICH142.WDO"), main});

    // w_cai020.wdo: made by the sales program; only the listed records.
    std::vector<int> sales = printerRecords();
    addAll(sales,
           {rec::ticketAtEachSale.number, rec::invoiceAtEachSale.number, rec::invoiceFormat.number,
            rec::invoiceOffset.number, rec::lineFeedHabit.number, rec::themePictures.number});
    addAll(sales, range(rec::themeColourFirst, rec::themeColourLast));
    tidy(sales);
    all.push_back({QString::fromLatin1(files::salesName), sales});

    // w_perifx.wdo: initialised by the tool (records 1 to 2000).
    std::vector<int> till = range(1, 2000);
    all.push_back({QString::fromLatin1(files::networkTillName), till});

    // w_imprc5.wdo: initialised by the kitchen screen (records 1 to 1001).
    std::vector<int> kitchen = range(1, 1001);
    addAll(kitchen, printerRecords());
    tidy(kitchen);
    all.push_back({QString::fromLatin1(files::kitchenName), kitchen});
    return all;
}
