#pragma once
// The window of the virtual printer: the paper roll with every ticket as it
// comes, one ticket a cut, and the accent advice for the last ticket. Each
// ticket is also written to the output folder as a PNG and a text file.
#include <QLabel>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QTimer>
#include <vector>

#include "escpos/decoder.h"
#include "virtual_port.h"

struct WindowOptions {
    int port = 1;
    QString outDir;
    QString extraLink;
    int paperMillimetres = 80;
};

class RollView;

class PrinterWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit PrinterWindow(const WindowOptions& options);
    ~PrinterWindow() override;
    bool start(QString& error);
    // The end of the run: the ticket in progress is written as it stands.
    void finish();

  private:
    void receive(const QByteArray& bytes);
    void refresh();
    void writeSheet(size_t index);
    QImage picture(size_t index);
    void clearRoll();

    WindowOptions options_;
    VirtualPort port_;
    escpos::Decoder decoder_;
    size_t firstShown_ = 0;  // sheets before it were cleared from the roll
    int numberOffset_ = 0;   // tickets already in the folder from earlier runs
    std::vector<bool> written_;
    std::vector<QImage> pictures_;  // of finished sheets, drawn once
    RollView* roll_ = nullptr;
    QLabel* status_ = nullptr;
    QPlainTextEdit* advice_ = nullptr;
    QTimer refreshTimer_, idleTimer_;
    qint64 bytesReceived_ = 0;
};

// 0 when the window was closed, else an error code after a message.
int runWindow(const WindowOptions& options);
