#include "support/test_run.h"

#include "store/records.h"

TestRun::TestRun(const std::set<int>& ptyPorts, Opened opened) : platform(ptyPorts) {
    ui.ctx = &ctx;
    if (opened == NoFile) return;
    ctx.store.open(files::sales, QString::fromLatin1(files::salesName), files::recordLength);
    if (opened != NetworkTill) return;
    ctx.fichier_perif = files::networkTill;
    ctx.store.open(files::networkTill, QString::fromLatin1(files::networkTillName),
                   files::recordLength);
}
