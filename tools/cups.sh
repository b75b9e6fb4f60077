# A local CUPS server with the PDF printer, for the tests that print for real.
# Sourced by test.sh. As root it starts cupsd when it is not running and adds
# the queue "PDF"; otherwise it only says what is missing (those tests then
# report it themselves).

scheduler_running() {
    lpstat -r 2>/dev/null | grep -q 'is running'
}

# The PDF goes through pdftocairo on its way to cups-pdf, so that its text can
# be read back (pdftotext); the default renderer loses the characters' codes.
# Each file is named after its job ("job_12-..."), so none overwrites another.
pdf_text_kept() {
    lpadmin -p PDF -o pdftops-renderer-default=pdftocairo -o Label-default=1 2>/dev/null || true
}

ensure_pdf_printer() {
    if lpstat -p PDF >/dev/null 2>&1; then
        [ "$(id -u)" -eq 0 ] && pdf_text_kept
        return 0
    fi
    if [ "$(id -u)" -ne 0 ]; then
        echo "note: no CUPS printer \"PDF\"; the tests that print for real need it" >&2
        return 0
    fi
    # lpstat -r exits 0 either way: only its words tell whether the
    # scheduler listens yet.
    if ! scheduler_running; then
        /usr/sbin/cupsd </dev/null
        for _ in $(seq 100); do scheduler_running && break; sleep 0.1; done
    fi
    local ppd
    ppd=$(find /usr/share/ppd -iname 'CUPS-PDF*.ppd' 2>/dev/null | head -n 1)
    if [ -n "$ppd" ]; then
        lpadmin -p PDF -E -v cups-pdf:/ -P "$ppd" 2>/dev/null || true
    else
        lpadmin -p PDF -E -v cups-pdf:/ 2>/dev/null || true
    fi
    pdf_text_kept
    lpstat -p PDF >/dev/null 2>&1 ||
        echo "note: the CUPS printer \"PDF\" could not be added; the tests that print for real will say so" >&2
}
