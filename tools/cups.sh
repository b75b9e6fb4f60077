# A local CUPS server with the PDF printer, for the tests that print for real.
# Sourced by test.sh. As root it starts cupsd when it is not running and adds
# the queue "PDF"; otherwise it only says what is missing (those tests then
# report it themselves).

ensure_pdf_printer() {
    if lpstat -p PDF >/dev/null 2>&1; then return 0; fi
    if [ "$(id -u)" -ne 0 ]; then
        echo "note: no CUPS printer \"PDF\"; the tests that print for real need it" >&2
        return 0
    fi
    if ! lpstat -r >/dev/null 2>&1; then
        /usr/sbin/cupsd </dev/null
        for _ in $(seq 50); do lpstat -r >/dev/null 2>&1 && break; sleep 0.1; done
    fi
    local ppd
    ppd=$(find /usr/share/ppd -iname 'CUPS-PDF*.ppd' 2>/dev/null | head -n 1)
    if [ -n "$ppd" ]; then
        lpadmin -p PDF -E -v cups-pdf:/ -P "$ppd"
    else
        lpadmin -p PDF -E -v cups-pdf:/ -m everywhere 2>/dev/null || lpadmin -p PDF -E -v cups-pdf:/
    fi
}
