#pragma once
// Showing a screen modally: the caller waits in a local event loop until the
// screen is hidden or closed; timers and port events go on meanwhile.
class Screen;
class Context;

// Shows the (already loaded) screen application-modal and returns when it has
// been hidden or closed.
void runModal(Screen& screen);
// The prompt dialog's whole call: a fresh form97 on msg_dialogue and
// retour_dialogue of the context, loaded, run modally, unloaded.
void showPromptDialog(Context& ctx);
