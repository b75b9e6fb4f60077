#pragma once
// A run of the tool inside a test: a scratch data directory made current,
// the test platform and interaction, and the context, with the station's
// files open as the start-up leaves them (or none, for the start-up itself).
#include <initializer_list>
#include <set>

#include "support/scratch_dir.h"
#include "support/test_interaction.h"
#include "support/test_platform.h"

class TestRun {
  public:
    enum Opened { NoFile, MainStation, NetworkTill };
    explicit TestRun(const std::set<int>& ptyPorts = {}, Opened opened = MainStation);
    ~TestRun() { ctx.store.closeAll(); }
    TestRun(const TestRun&) = delete;
    TestRun& operator=(const TestRun&) = delete;

    void answer(std::initializer_list<Reply> r) { ui.replies.insert(ui.replies.end(), r); }

    ScratchDir dir;
    TestPlatform platform;
    TestInteraction ui;
    Context ctx{platform, ui};
};
