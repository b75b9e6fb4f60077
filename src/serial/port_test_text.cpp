#include "serial/port_test_text.h"

#include "print/accents.h"
#include "print/mscomm.h"
#include "store/codec.h"

Job portTestText(int port) {
    const QByteArray dashes = QByteArray(30, '-') + "\n\r";
    auto line = [](const char* utf8) { return codec::toBytes(QString::fromUtf8(utf8)); };
    Job text;
    text.add("\n\n\n");
    text.add(line("Votre test d'impression"), Write::How::Translated);
    text.add(line("a réussi, le numéro de "), Write::How::Translated);
    text.add("port est le : " + QByteArray::number(port), Write::How::Translated);
    text.add(dashes);
    text.add(line("Verifiez que les accents"), Write::How::Translated);
    text.add(line("sont corrects ci dessous"), Write::How::Translated);
    text.add(line("e accents = é"), Write::How::Translated);
    text.add(line("e accents = è"), Write::How::Translated);
    text.add(line("c cedille = ç"), Write::How::Translated);
    text.add(line("a accents = à"), Write::How::Translated);
    text.add(dashes);
    text.add(QByteArray(7, '\n'));
    return text;
}

void envoi_re(MSComm& port, QByteArray& text, int mode_accent) {
    traduit_accents(text, mode_accent);
    port.output(text + "\n\r");
}

void sendPortTestText(MSComm& port, const Job& text, int mode_accent) {
    for (const Write& write : text.writes) {
        if (write.how == Write::How::Translated) {
            QByteArray line = write.bytes;
            envoi_re(port, line, mode_accent);
        } else {
            port.output(write.bytes);
        }
    }
}
