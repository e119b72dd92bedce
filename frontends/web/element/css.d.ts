/** A style sheet is bundled as its text. */
declare module '*.css' {
    const text: string;
    export default text;
}
