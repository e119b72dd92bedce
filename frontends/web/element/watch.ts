/** What nothing in an element tells of: the page's scheme and classes, its size, the screen, presses. */

export interface Watched {
    /** Colours, fonts or the scale may be others. */
    looked(): void;
    resized(): void;
    /** Both are told the elements that it went through. */
    pressed(path: EventTarget[]): void;
    scrolled(path: EventTarget[]): void;
}

/** Answers how it is ended. */
export function watchPage({ looked, resized, pressed, scrolled }: Watched): () => void {
    const stop = new AbortController();
    const { signal } = stop;
    for (const query of ['(prefers-color-scheme: dark)', '(forced-colors: active)'])
        matchMedia(query).addEventListener('change', looked, { signal });
    const watchScale = () =>
        matchMedia(`(resolution: ${devicePixelRatio}dppx)`).addEventListener(
            'change', () => (looked(), watchScale()), { signal, once: true },
        );
    watchScale();
    addEventListener('resize', () => (looked(), resized()), { signal });
    addEventListener('focus', looked, { signal });
    addEventListener('pointerdown', (event) => pressed(event.composedPath()), { signal, capture: true });
    addEventListener('scroll', (event) => scrolled(event.composedPath()), { signal, capture: true });
    const classes = new MutationObserver(looked);
    classes.observe(document.documentElement, { attributes: true });
    signal.addEventListener('abort', () => classes.disconnect());
    return () => stop.abort();
}
