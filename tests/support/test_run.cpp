#include "support/test_run.h"

#include "store/records.h"

TestRun::TestRun(Opened opened) {
    ui.ctx = &ctx;
    if (opened == SalesFile)
        ctx.store.open(files::sales, QString::fromLatin1(files::salesName), files::recordLength);
}
