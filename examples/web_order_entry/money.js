/**
 * Amounts of money as whole hundredths in a bigint. The order form multiplies, adds and stores
 * them so, never as binary fractions, and an amount that would not fit its column is none.
 */

const most = 2n ** 63n - 1n;

/**
 * Reads a number without grouping, as `textMatrix` of a numeric column answers it. Decimals beyond
 * the second are rounded half away from zero. Null for a text that is no number.
 * @param {string} text
 * @param {string} decimalSign
 */
export function moneyOf(text, decimalSign) {
    const [, minus, whole, fraction = ''] =
        text.trim().replace(decimalSign, '.').match(/^(-?)(\d*)(?:\.(\d*))?$/) ?? [];
    if (whole === undefined || whole + fraction === '') return null;
    const hundredths =
        BigInt(whole + fraction.slice(0, 2).padEnd(2, '0')) + (fraction[2] >= '5' ? 1n : 0n);
    return checked(minus ? -hundredths : hundredths);
}

/**
 * Always with two decimals and without grouping.
 * @param {bigint} hundredths
 */
export function moneyText(hundredths, decimalSign = '.') {
    const digits = String(hundredths < 0n ? -hundredths : hundredths).padStart(3, '0');
    return (hundredths < 0n ? '-' : '') + digits.slice(0, -2) + decimalSign + digits.slice(-2);
}

/**
 * Null for an amount that is too large.
 * @param {bigint} hundredths
 */
export function checked(hundredths) {
    return hundredths > most || hundredths < -most ? null : hundredths;
}
