// Makes the picture tickets of tests/escpos/tickets with three ESC/POS
// libraries of the npm registry, each in its own picture command, from the
// one black-and-white source picture picture.png (64 by 48 dots, a frame
// round it so that its place on the paper is plain):
//   receiptline                      GS 8 L function 112, printed by GS ( L 50
//   @point-of-sale/receipt-printer-encoder  GS v 0 (raster) and ESC * 33 (column)
//   node-thermal-printer             GS v 0
// Remake them with: cd tests/escpos/tickets && npm install && node make_pictures.mjs
import { readFileSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import ReceiptPrinterEncoder from '@point-of-sale/receipt-printer-encoder';

const require = createRequire(import.meta.url);
const receiptline = require('receiptline');
const { ThermalPrinter, PrinterTypes } = require('node-thermal-printer');
// pngjs comes with node-thermal-printer and receiptline, which read PNG with it.
const { PNG } = require('pngjs');

const here = new URL('.', import.meta.url);
const png = readFileSync(new URL('picture.png', here));
const picture = PNG.sync.read(png);

function save(name, bytes) {
    writeFileSync(new URL(name, here), Buffer.from(bytes));
    console.log(`${name}: ${bytes.length} bytes`);
}

// receiptline: a picture alone on the ticket, centred, on a thermal printer;
// without its error diffusion, which turns a few dots of a black area white.
save('pictures_receiptline.bin',
     Buffer.from(receiptline.transform(`{i:${png.toString('base64')}}`,
                                       { cpl: 48, encoding: 'cp437', command: 'escpos', cutting: true, gradient: false }),
                 'binary'));

// receipt-printer-encoder: the picture at its own size in both of its modes.
for (const mode of ['raster', 'column']) {
    const encoder = new ReceiptPrinterEncoder({ language: 'esc-pos', columns: 48, imageMode: mode });
    const image = { data: picture.data, width: picture.width, height: picture.height };
    save(`pictures_encoder_${mode}.bin`,
         encoder.initialize().image(image, picture.width, picture.height, 'threshold').newline().cut().encode());
}

// node-thermal-printer: the PNG itself.
const printer = new ThermalPrinter({ type: PrinterTypes.EPSON, width: 48 });
await printer.printImageBuffer(png);
printer.cut();
save('pictures_thermal.bin', printer.getBuffer());

// The README's ticket: a title, the picture in GS v 0, prices with the euro
// in PC858, a rule and a QR code in GS ( k.
const readme = new ReceiptPrinterEncoder({ language: 'esc-pos', columns: 48, imageMode: 'raster' });
save('pictures_readme.bin',
     readme.initialize().codepage('cp858')
         .align('center').size(1, 2).line('Boulangerie du Port').size(1, 1)
         .image({ data: picture.data, width: picture.width, height: picture.height },
                picture.width, picture.height, 'threshold')
         .newline()
         .align('left')
         .table([{ width: 34 }, { width: 14, align: 'right' }],
                [['Pain de campagne', '3,20 €'], ['Croissants x2', '2,40 €']])
         .rule()
         .bold(true).table([{ width: 34 }, { width: 14, align: 'right' }], [['TOTAL', '5,60 €']])
         .bold(false)
         .align('center').qrcode('https://example.org/t/2611-0042', { model: 2, size: 5 })
         .newline().line('Merci de votre visite !')
         .cut().encode());
