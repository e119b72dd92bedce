/** What a new order starts with: the articles of a small shop, and some lines to look at. */

/** @typedef {import('./order_book.js').Article} Article */
/** @typedef {import('./order_book.js').OrderLine} OrderLine */

/** @type {Article[]} */
export const shopArticles = [
    ['BIND-A4', 'Ring binder A4, 60 mm', 'piece', 345n],
    ['BOARD-90', 'Whiteboard 90 x 60 cm', 'piece', 4290n],
    ['CALC-12', 'Desk calculator, 12 digits', 'piece', 1875n],
    ['CHAIR-02', 'Office chair, armrests', 'piece', 18900n],
    ['CLIP-33', 'Paper clips 33 mm, box of 100', 'box', 89n],
    ['DESK-160', 'Desk 160 x 80 cm, oak', 'piece', 32950n],
    ['ENV-C5', 'Envelopes C5, box of 500', 'box', 2460n],
    ['FOLD-10', 'Hanging folders, pack of 10', 'pack', 799n],
    ['GLUE-40', 'Glue stick 40 g', 'piece', 165n],
    ['INK-BK', 'Ink cartridge, black', 'piece', 2199n],
    ['LABEL-65', 'Labels 38 x 21 mm, 65 a sheet', 'pack', 1120n],
    ['LAMP-LED', 'Desk lamp, LED', 'piece', 3995n],
    ['MARK-4', 'Whiteboard markers, set of 4', 'set', 520n],
    ['NOTE-76', 'Sticky notes 76 x 76 mm', 'piece', 115n],
    ['PAPER-A4', 'Copy paper A4, 500 sheets', 'pack', 449n],
    ['PEN-BL', 'Ballpoint pen, blue', 'piece', 75n],
    ['PUNCH-25', 'Hole punch, 25 sheets', 'piece', 1340n],
    ['SHRED-08', 'Shredder, 8 sheets', 'piece', 5990n],
    ['STAPLE-24', 'Staples 24/6, box of 1000', 'box', 95n],
    ['TAPE-50', 'Packing tape 50 mm x 66 m', 'piece', 210n],
].map(([code, description, unit, price]) => /** @type {Article} */ ({ code, description, unit, price }));

/** A date that nobody knows yet is "". @type {[string, number, string, boolean][]} */
const samples = [
    ['DESK-160', 4, '2026-11-30', false],
    ['CHAIR-02', 4, '2026-11-30', false],
    ['LAMP-LED', 6, '2026-11-16', true],
    ['PAPER-A4', 250, '2026-11-12', true],
    ['PEN-BL', 1200, '', false],
    ['ENV-C5', 15, '2026-11-12', true],
    ['INK-BK', 12, '2026-12-04', false],
    ['BIND-A4', 40, '', false],
];

/** By row, as the form shows them. */
export function sampleLines() {
    /** @type {Map<number, OrderLine>} */
    const lines = new Map();
    samples.forEach(([code, quantity, delivery, delivered], place) => {
        const { description, price, unit } =
            shopArticles.find((each) => each.code === code) ?? shopArticles[0];
        lines.set(place + 1, { article: code, description, quantity, price, unit, delivery, delivered });
    });
    return lines;
}
