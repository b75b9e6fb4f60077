// Makes the ESC/POS tickets of this folder with three libraries of the npm
// registry, pinned in package.json: text with French accents and the euro in
// each code page a library offers, every bar code and 2D symbol it can emit,
// and a small raster picture. Beside each NAME.bin, NAME.expect tells what
// a reader must find on the drawn ticket:
//   text <a line of text as printed>
//   symbol <the data a bar code reader decodes>
//   picture-symbol <the same, of a symbol the library sends as a picture>
// Remake them with: npm install && node make_tickets.mjs
import { writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import ReceiptPrinterEncoder from '@point-of-sale/receipt-printer-encoder';

const require = createRequire(import.meta.url);
const receiptline = require('receiptline');
const { ThermalPrinter, PrinterTypes, CharacterSet } = require('node-thermal-printer');
const { PNG } = require('pngjs');

const here = new URL('.', import.meta.url);
const accents = 'Crème brûlée, garçon, où êtes-vous ?';
const euro = 'Total : 3,50 €';

// A 96 x 48 picture: a frame, a diagonal and a filled square.
const picture = (() => {
    const width = 96, height = 48;
    const png = new PNG({ width, height });
    for (let y = 0; y < height; y++)
        for (let x = 0; x < width; x++) {
            const black = x < 2 || y < 2 || x >= width - 2 || y >= height - 2 ||
                Math.abs(x - 2 * y) < 2 || (x >= 60 && x < 84 && y >= 12 && y < 36);
            const i = (y * width + x) * 4;
            png.data[i] = png.data[i + 1] = png.data[i + 2] = black ? 0 : 255;
            png.data[i + 3] = 255;
        }
    return { png: PNG.sync.write(png), data: png.data, width, height };
})();

function save(name, bytes, expected) {
    writeFileSync(new URL(`${name}.bin`, here), bytes);
    writeFileSync(new URL(`${name}.expect`, here), expected.join('\n') + '\n');
    console.log(`${name}.bin: ${bytes.length} bytes`);
}

// The text lines a ticket in this code page prints whole.
function textLines(hasEuro) {
    return [`text ${accents}`, ...(hasEuro ? [`text ${euro}`] : [])];
}

// ---------------------------------------------------------------- receiptline
function receiptlineTicket(encoding, hasEuro) {
    const doc = [
        accents,
        euro,
        '{code:327024114022; option:ean,2,72,hri}',
        '{code:03600029145; option:upc,2,72,hri}',
        '{code:9638507; option:ean,2,72}',
        '{code:KALVO-17; option:code39,2,72,hri}',
        '{code:12345678; option:itf,2,72}',
        '{code:A40156B; option:codabar,2,72}',
        '{code:TEST93; option:code93,2,72}',
        '{code:Kalvo 17; option:code128,2,72,hri}',
        '{code:https://kalvo.example/t/17; option:qrcode,4,m}',
        `{image:${picture.png.toString('base64')}}`,
        '',
    ].join('\n');
    const bytes = Buffer.from(
        receiptline.transform(doc, { cpl: 48, encoding, command: 'escpos', cutting: true }),
        'binary');
    const symbols = ['3270241140224', '036000291452', '96385074', 'KALVO-17', '12345678',
        '40156', 'TEST93', 'Kalvo 17'];
    // receiptline sends its QR code as a picture of its own (GS 8 L).
    return [bytes, [...textLines(hasEuro), ...symbols.map((s) => `symbol ${s}`),
        'picture-symbol https://kalvo.example/t/17']];
}

// ------------------------------------------------- @point-of-sale/receipt-printer-encoder
function encoderTicket(codepage, hasEuro) {
    const e = new ReceiptPrinterEncoder({ printerModel: 'epson-tm-m30iii', columns: 48 });
    e.initialize().codepage(codepage).line(accents).line(euro);
    const barcodes = [
        ['upca', '036000291452', '036000291452'],
        ['upce', '04252614', '04252614'],
        ['ean13', '3270241140224', '3270241140224'],
        ['ean8', '96385074', '96385074'],
        ['code39', 'KALVO-17', 'KALVO-17'],
        ['itf', '12345678', '12345678'],
        ['codabar', 'A40156B', '40156'],
        ['code93', 'TEST93', 'TEST93'],
        ['code128', 'Kalvo 17', 'Kalvo 17'],
        ['gs1-128', '(01)03270241140224(10)LOT7', '010327024114022410LOT7'],
        ['gs1-databar-omni', '0327024114022', '03270241140224'],
        ['gs1-databar-truncated', '0327024114022', '03270241140224'],
        ['gs1-databar-limited', '0327024114022', ''],
        ['gs1-databar-expanded', '(01)03270241140224(10)LOT7', '010327024114022410LOT7'],
        ['code128-auto', 'Kalvo 17 auto', 'Kalvo 17 auto'],
    ];
    const expected = textLines(hasEuro);
    for (const [symbology, value, read] of barcodes) {
        e.barcode(value, symbology, { height: 60, width: 2, text: 'below' });
        // No reader here knows the limited kind: it is drawn, not read. Codabar
        // is read without its start and stop letters, DataBar without its (01).
        if (read) expected.push(`symbol ${read}`);
    }
    e.qrcode('https://kalvo.example/t/17', { model: 2, size: 5, errorlevel: 'm' });
    e.pdf417('Kalvo ticket 17', { width: 3, height: 3 });
    e.image({ data: picture.data, width: picture.width, height: picture.height },
        picture.width, picture.height, 'threshold');
    e.newline().cut();
    expected.push('symbol https://kalvo.example/t/17', 'symbol Kalvo ticket 17');
    return [Buffer.from(e.encode()), expected];
}

// ---------------------------------------------------------------- node-thermal-printer
async function thermalTicket(characterSet, hasEuro) {
    const p = new ThermalPrinter({ type: PrinterTypes.EPSON, interface: '/dev/null', characterSet, width: 48 });
    p.println(accents);
    p.println(euro);
    p.printBarcode('327024114022', 67, { hriPos: 2, width: 3, height: 80 });
    p.printBarcode('036000291452', 65, { hriPos: 2, width: 3, height: 80 });
    p.code128('Kalvo 17', { hriPos: 2, width: 2, height: 80 });
    p.printQR('https://kalvo.example/t/17', { cellSize: 5, correction: 'M', model: 2 });
    p.pdf417('Kalvo ticket 17', { rowHeight: 3, width: 3, correction: 1, columns: 0 });
    p.maxiCode('Kalvo 17', { mode: 4 });
    await p.printImageBuffer(picture.png);
    p.cut();
    const expected = [...textLines(hasEuro), 'symbol 3270241140224', 'symbol 036000291452',
        'symbol Kalvo 17', 'symbol https://kalvo.example/t/17', 'symbol Kalvo ticket 17'];
    return [p.getBuffer(), expected];
}

for (const [encoding, hasEuro] of [['cp437', false], ['cp858', true], ['cp1252', true]])
    save(`receiptline_${encoding}`, ...receiptlineTicket(encoding, hasEuro));
for (const [codepage, hasEuro] of [['cp437', false], ['cp850', false], ['cp858', true], ['windows1252', true]])
    save(`encoder_${codepage}`, ...encoderTicket(codepage, hasEuro));
for (const [set, name, hasEuro] of [[CharacterSet.PC437_USA, 'cp437', false],
    [CharacterSet.PC850_MULTILINGUAL, 'cp850', false], [CharacterSet.PC858_EURO, 'cp858', true],
    [CharacterSet.WPC1252, 'cp1252', true]])
    save(`thermal_${name}`, ...(await thermalTicket(set, hasEuro)));
