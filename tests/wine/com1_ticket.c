/* A till's sales program in miniature: opens COM1, sets 9600 8N1 and prints
   a short ticket (reset, a line with accents in code page 850, a cut), as a
   Windows program does it. Exit code 0 when every byte was written. */
#include <stdio.h>
#include <windows.h>

int main(int argc, char** argv) {
    const char* name = argc > 1 ? argv[1] : "COM1";
    HANDLE port = CreateFileA(name, GENERIC_READ | GENERIC_WRITE, 0, NULL, OPEN_EXISTING, 0, NULL);
    if (port == INVALID_HANDLE_VALUE) {
        fprintf(stderr, "CreateFile %s: error %lu\n", name, GetLastError());
        return 1;
    }
    DCB dcb;
    ZeroMemory(&dcb, sizeof dcb);
    dcb.DCBlength = sizeof dcb;
    if (!GetCommState(port, &dcb)) {
        fprintf(stderr, "GetCommState: error %lu\n", GetLastError());
        return 1;
    }
    dcb.BaudRate = CBR_9600;
    dcb.ByteSize = 8;
    dcb.Parity = NOPARITY;
    dcb.StopBits = ONESTOPBIT;
    dcb.fBinary = TRUE;
    dcb.fOutxCtsFlow = FALSE;
    dcb.fRtsControl = RTS_CONTROL_ENABLE;
    dcb.fOutX = FALSE;
    dcb.fInX = FALSE;
    if (!SetCommState(port, &dcb)) {
        fprintf(stderr, "SetCommState: error %lu\n", GetLastError());
        return 1;
    }
    /* ESC @, ESC t 2 (code page 850), "Café crème brûlée", feed, GS V 66 0. */
    static const char ticket[] =
        "\x1b@\x1bt\x02"
        "Caf\x82 cr\x8Ame br\x96l\x82"
        "e\n"
        "Wine COM1\n"
        "\x1b"
        "d\x03\x1dV\x42\x00";
    DWORD written = 0;
    const DWORD size = sizeof ticket - 1;
    if (!WriteFile(port, ticket, size, &written, NULL) || written != size) {
        fprintf(stderr, "WriteFile: %lu of %lu bytes, error %lu\n", written, size, GetLastError());
        return 1;
    }
    FlushFileBuffers(port);
    CloseHandle(port);
    return 0;
}
