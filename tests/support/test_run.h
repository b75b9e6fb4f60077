#pragma once
// A run of the tool inside a test: a scratch data directory made current,
// the test platform and interaction, and the context, with the sales
// program's file open as file 20 as the start-up leaves it (or no file, for
// the start-up itself).
#include <set>

#include "support/scratch_dir.h"
#include "support/test_interaction.h"
#include "support/test_platform.h"

class TestRun {
  public:
    enum Opened { NoFile, SalesFile };
    // The ports named lead to captured pseudo-terminals.
    explicit TestRun(const std::set<int>& ptyPorts = {}, Opened opened = SalesFile);
    ~TestRun() { ctx.store.closeAll(); }
    TestRun(const TestRun&) = delete;
    TestRun& operator=(const TestRun&) = delete;

    ScratchDir dir;
    TestPlatform platform;
    TestInteraction ui;
    Context ctx{platform, ui};
};
