#include "support/test_run.h"

#include "store/records.h"

TestRun::TestRun(const std::set<int>& ptyPorts, Opened opened) : platform(ptyPorts) {
    ui.ctx = &ctx;
    if (opened == SalesFile)
        ctx.store.open(files::sales, QString::fromLatin1(files::salesName), files::recordLength);
}
