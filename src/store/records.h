#pragma once
// The one table of every record this tool reads or writes in the 20-character
// files it shares with the sales program. Screens name records through it; a
// record that is not here is never touched.
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <vector>

// Where a record lives.
enum class RecordFile {
    Peripheral,  // the station's file: number fichier_perif (20 main, 120 network till)
    Sales,       // file number 20 whatever the station (w_cai020.wdo, or w_imprc5.wdo
                 // while the kitchen screen is open)
    Kitchen,     // the kitchen printer's records: the ticket printer's numbers in
                 // w_imprc5.wdo, which file number 20 stands for while the
                 // kitchen screen is open
    Main,        // WFICH142.WDO, file number 142
    PortFile,    // Souvprt<port>.wdo, file number 147
};

struct RecordRef {
    RecordFile file;
    int number;
};

// File numbers and names.
namespace files {
inline constexpr int main = 142;
inline constexpr int sales = 20;
inline constexpr int networkTill = 120;
inline constexpr int port = 147;
inline constexpr int params = 25;
inline constexpr int switches = 163;
inline constexpr int ticketLines = 132;
inline const char* const mainName = "WFICH142.WDO ";
inline const char* const salesName = "w_cai020.wdo";
inline const char* const kitchenName = "w_imprc5.wdo";
inline const char* const networkTillName = "w_perifx.wdo";
inline const char* const paramsName = "WFICP_IA.WDO";
inline const char* const switchesName = "switch63.wdo";
inline const char* const ticketLinesName = "W_FE1032.WDO";
inline constexpr int recordLength = 20;
}  // namespace files

// A 20-character record as a screen shows it: the bytes before the first
// zero byte, padded with blanks. A file that the sales program has made but
// not yet written holds zero bytes, and such a record is blank. The cut is
// for showing only: an update in place starts from the record as it is.
QByteArray visibleRecord(QByteArrayView bytes);

// Record 70, the printer's route: "00" or "01", then the port formatted "0"
// in characters 4 and 5, as a whole record.
QByteArray routeRecord(const char* head, qint16 port);
// Characters 4 and 5 of record 70: the port formatted "0", padded with blanks.
QByteArray portField(qint16 port);

// The file number a record is read and written through.
int fileNumberOf(RecordFile file, int fichier_perif);

namespace rec {
// WFICH142.WDO
inline constexpr RecordRef marker142{RecordFile::Main, 1};
inline constexpr RecordRef kitchenOwnPrinter{RecordFile::Main, 25};
inline constexpr RecordRef standardInstallDone{RecordFile::Main, 99};
inline constexpr RecordRef labelPrinterUsed{RecordFile::Main, 140};
inline constexpr RecordRef drawerPort{RecordFile::Main, 190};
inline constexpr RecordRef drawerPulseMs{RecordFile::Main, 191};
inline constexpr RecordRef drawerClose{RecordFile::Main, 192};
inline constexpr RecordRef drawerOpen{RecordFile::Main, 193};
inline constexpr RecordRef drawerSettings{RecordFile::Main, 194};
inline constexpr RecordRef launchMailbox{RecordFile::Main, 195};

// The ticket printer, in the station's file (and the kitchen printer's, with
// the same numbers, in w_imprc5.wdo).
inline constexpr RecordRef leftMargin{RecordFile::Peripheral, 19};
inline constexpr RecordRef feedLines{RecordFile::Peripheral, 22};
inline constexpr RecordRef paperCut{RecordFile::Peripheral, 24};
inline constexpr RecordRef init1{RecordFile::Peripheral, 27};
inline constexpr RecordRef route{RecordFile::Peripheral, 70};
inline constexpr RecordRef printerKind{RecordFile::Peripheral, 81};
inline constexpr RecordRef accentMode{RecordFile::Peripheral, 84};
inline constexpr RecordRef init2{RecordFile::Peripheral, 97};
inline constexpr RecordRef init3{RecordFile::Peripheral, 98};
inline constexpr RecordRef serialSettings{RecordFile::Peripheral, 99};
inline constexpr RecordRef usbFamily{RecordFile::Peripheral, 160};
inline constexpr RecordRef boldOn{RecordFile::Peripheral, 691};
inline constexpr RecordRef boldOff{RecordFile::Peripheral, 692};
inline constexpr RecordRef italicOn{RecordFile::Peripheral, 693};
inline constexpr RecordRef italicOff{RecordFile::Peripheral, 694};
inline constexpr RecordRef defaultPrinterFont{RecordFile::Peripheral, 697};
inline constexpr RecordRef drawerOnPrinter{RecordFile::Peripheral, 700};
inline constexpr int drawerPulseFirst = 701;  // 701 to 711, one byte each
inline constexpr int drawerPulseLast = 711;
inline constexpr RecordRef drawerTrailer{RecordFile::Peripheral, 712};

// Sale and print habits, always file 20.
inline constexpr RecordRef ticketAtEachSale{RecordFile::Sales, 20};
inline constexpr RecordRef invoiceAtEachSale{RecordFile::Sales, 66};
inline constexpr RecordRef invoiceFormat{RecordFile::Sales, 80};
inline constexpr RecordRef invoiceOffset{RecordFile::Sales, 87};
inline constexpr RecordRef lineFeedHabit{RecordFile::Sales, 90};

// The image theme, file 20.
inline constexpr RecordRef themePictures{RecordFile::Sales, 1999};
inline constexpr RecordRef keypadTextSize{RecordFile::Sales, 2038};
inline constexpr RecordRef keypadFont{RecordFile::Sales, 2039};
inline constexpr int themeColourFirst = 2042;  // 2042 to 2047
inline constexpr int themeColourLast = 2047;
inline constexpr RecordRef customPictures{RecordFile::Sales, 3008};

// Souvprt<port>.wdo
inline constexpr RecordRef portSettings{RecordFile::PortFile, 1};
inline constexpr RecordRef portName{RecordFile::PortFile, 2};
inline constexpr int portCodesFirst = 10;  // 10 to 21
inline constexpr int portCodesLast = 21;
}  // namespace rec

// Every record number of a file that this tool may write, by file name as it
// stands on disk, for checks that nothing else is ever touched. Initialising a
// file (its marker and blank records) is included where the tool owns the file.
struct WritableRecords {
    QString fileName;
    std::vector<int> numbers;  // sorted, unique
};
std::vector<WritableRecords> writableRecords();
