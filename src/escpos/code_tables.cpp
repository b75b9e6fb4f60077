#include "escpos/code_tables.h"

#include <QStringDecoder>
#include <map>
#include <mutex>

#include "escpos/document.h"

namespace escpos {

namespace {

struct TableName {
    int number;
    const char* name;   // as printer manuals call it
    const char* codec;  // as Qt (ICU) knows it; nullptr when none fits
};

// ESC t n: the printer's number, its name, and the codec that holds the same
// characters. Tables that no codec holds (Katakana's half of JIS aside, the
// Thai and user-defined pages) print as unknown characters.
constexpr TableName tableNames[] = {
    {0, "PC437", "IBM437"},
    {1, "Katakana", "Shift_JIS"},
    {2, "PC850", "IBM850"},
    {3, "PC860", "IBM860"},
    {4, "PC863", "IBM863"},
    {5, "PC865", "IBM865"},
    {11, "PC851", "IBM851"},
    {13, "PC857", "IBM857"},
    {14, "PC737", "IBM737"},
    {15, "ISO8859-7", "ISO-8859-7"},
    {16, "WPC1252", "windows-1252"},
    {17, "PC866", "IBM866"},
    {18, "PC852", "IBM852"},
    {19, "PC858", "IBM00858"},
    {21, "Thai 11", "TIS-620"},
    {32, "PC720", "IBM720"},
    {33, "WPC775", "IBM775"},
    {34, "PC855", "IBM855"},
    {36, "PC862", "IBM862"},
    {37, "PC864", "IBM864"},
    {38, "PC869", "IBM869"},
    {39, "ISO8859-2", "ISO-8859-2"},
    {40, "ISO8859-15", "ISO-8859-15"},
    {45, "WPC1250", "windows-1250"},
    {46, "WPC1251", "windows-1251"},
    {47, "WPC1253", "windows-1253"},
    {48, "WPC1254", "windows-1254"},
    {49, "WPC1255", "windows-1255"},
    {50, "WPC1256", "windows-1256"},
    {51, "WPC1257", "windows-1257"},
    {52, "WPC1258", "windows-1258"},
    {255, "définie par l'utilisateur", nullptr},
};

// Where the printer's table differs from the codec's. Katakana: the half-width
// katakana of JIS X 0201 between block and line graphics, and a few kanji
// for dates and prices.
// clang-format off
constexpr char16_t katakanaHigh[128] = {  // 80 to FF, sixteen a row
    u'▁', u'▂', u'▃', u'▄', u'▅', u'▆', u'▇', u'█', u'▏', u'▎', u'▍', u'▌', u'▋', u'▊', u'▉', u'┼',
    u'┴', u'┬', u'┤', u'├', u'▔', u'─', u'│', u'▕', u'┌', u'┐', u'└', u'┘', u'╭', u'╮', u'╰', u'╯',
    u' ', u'｡', u'｢', u'｣', u'､', u'･', u'ｦ', u'ｧ', u'ｨ', u'ｩ', u'ｪ', u'ｫ', u'ｬ', u'ｭ', u'ｮ', u'ｯ',
    u'ｰ', u'ｱ', u'ｲ', u'ｳ', u'ｴ', u'ｵ', u'ｶ', u'ｷ', u'ｸ', u'ｹ', u'ｺ', u'ｻ', u'ｼ', u'ｽ', u'ｾ', u'ｿ',
    u'ﾀ', u'ﾁ', u'ﾂ', u'ﾃ', u'ﾄ', u'ﾅ', u'ﾆ', u'ﾇ', u'ﾈ', u'ﾉ', u'ﾊ', u'ﾋ', u'ﾌ', u'ﾍ', u'ﾎ', u'ﾏ',
    u'ﾐ', u'ﾑ', u'ﾒ', u'ﾓ', u'ﾔ', u'ﾕ', u'ﾖ', u'ﾗ', u'ﾘ', u'ﾙ', u'ﾚ', u'ﾛ', u'ﾜ', u'ﾝ', u'ﾞ', u'ﾟ',
    u'═', u'╞', u'╪', u'╡', u'◢', u'◣', u'◥', u'◤', u'♠', u'♥', u'♦', u'♣', u'●', u'○', u'╱', u'╲',
    u'╳', u'円', u'年', u'月', u'日', u'時', u'分', u'秒', u'〒', u'市', u'区', u'町', u'村', u'人', u'▒', u'\u00A0',
};
// clang-format on

void adjust(CodeTable& table) {
    if (table.number == 1)
        for (int byte = 128; byte < 256; ++byte)
            table.chars[size_t(byte)] = katakanaHigh[byte - 128];
    // PC857 has the euro where the codec has a gap.
    if (table.number == 13) table.chars[0xD5] = u'€';
}

const TableName* findName(int number) {
    for (const TableName& t : tableNames)
        if (t.number == number) return &t;
    return nullptr;
}

CodeTable build(int number) {
    CodeTable table;
    table.number = number;
    table.name = codeTableName(number);
    const TableName* name = findName(number);
    QStringDecoder probe(name && name->codec ? name->codec : "");
    table.known = name && name->codec && probe.isValid();
    for (int byte = 0; byte < 256; ++byte) {
        char16_t c = byte < 128 ? char16_t(byte) : char16_t(0xFFFD);
        if (table.known) {
            // A fresh decoder a byte: a lead byte of a multi-byte table must
            // not swallow the next one.
            QStringDecoder decoder(name->codec);
            const QString s = decoder(QByteArray(1, char(byte)));
            if (s.size() == 1) c = s.at(0).unicode();
        }
        table.chars[size_t(byte)] = c;
    }
    adjust(table);
    return table;
}

// ESC R n: the twelve places of ASCII that a national set changes, and what
// stands there in each set, in the order of the places.
constexpr unsigned char nationalPlaces[12] = {0x23, 0x24, 0x40, 0x5B, 0x5C, 0x5D,
                                              0x5E, 0x60, 0x7B, 0x7C, 0x7D, 0x7E};
struct NationalSet {
    const char* name;
    const char16_t* chars;  // 12 characters
};
const NationalSet nationalSets[] = {
    {"USA", u"#$@[\\]^`{|}~"},
    {"France", u"#$à°ç§^`éùè¨"},
    {"Allemagne", u"#$§ÄÖÜ^`äöüß"},
    {"Royaume-Uni", u"£$@[\\]^`{|}~"},
    {"Danemark I", u"#$@ÆØÅ^`æøå~"},
    {"Suède", u"#¤ÉÄÖÅÜéäöåü"},
    {"Italie", u"#$@°\\é^ùàòèì"},
    {"Espagne I", u"₧$@¡Ñ¿^`¨ñ}~"},
    {"Japon", u"#$@[¥]^`{|}~"},
    {"Norvège", u"#¤ÉÆØÅÜéæøåü"},
    {"Danemark II", u"#$ÉÆØÅÜéæøåü"},
    {"Espagne II", u"#$á¡Ñ¿é`íñóú"},
    {"Amérique latine", u"#$á¡Ñ¿éüíñóú"},
    {"Corée", u"#$@[₩]^`{|}~"},
};
constexpr int nationalCount = int(sizeof nationalSets / sizeof nationalSets[0]);

int nationalPlace(unsigned char byte) {
    for (int i = 0; i < 12; ++i)
        if (nationalPlaces[i] == byte) return i;
    return -1;
}

}  // namespace

const CodeTable& codeTable(int number) {
    static std::mutex mutex;
    static std::map<int, CodeTable> tables;
    std::lock_guard lock(mutex);
    auto it = tables.find(number);
    if (it == tables.end()) it = tables.emplace(number, build(number)).first;
    return it->second;
}

QString codeTableName(int number) {
    const TableName* name = findName(number);
    return name ? QString::fromUtf8(name->name) : QStringLiteral("table %1").arg(number);
}

const std::array<int, 4>& commonTables() {
    static const std::array<int, 4> tables = {0, 2, 16, 19};
    return tables;
}

char16_t printedChar(unsigned char byte, int table, int international) {
    if (byte < 128 && international > 0 && international < nationalCount) {
        const int place = nationalPlace(byte);
        if (place >= 0) return nationalSets[international].chars[place];
    }
    return codeTable(table).chars[byte];
}

QString printedText(const QByteArray& bytes, int table, int international) {
    const CodeTable& chars = codeTable(table);
    const bool national = international > 0 && international < nationalCount;
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char b : bytes) {
        const auto byte = static_cast<unsigned char>(b);
        const int place = national && byte < 128 ? nationalPlace(byte) : -1;
        *out++ = QChar(place >= 0 ? nationalSets[international].chars[place] : chars.chars[byte]);
    }
    return text;
}

QString TextRun::text() const {
    return printedText(bytes, style.codeTable, style.international);
}

QString internationalName(int number) {
    if (number >= 0 && number < nationalCount) return QString::fromUtf8(nationalSets[number].name);
    return QStringLiteral("jeu %1").arg(number);
}

}  // namespace escpos
