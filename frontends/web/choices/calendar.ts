/** The month calendar of the open date edit: the core's month in the words of the page's language. */

import { make, makeButton, put } from '../element/make.js';
import { Tell, type NativeGrid } from '../element/native.js';
import { twips, type State } from '../element/state.js';

const enum Day { Today = 1, Chosen = 2, OtherMonth = 4, OutOfRange = 8 }

export class Calendar {
    readonly element = make('div', { className: 'calendar', id: 'calendar', role: 'dialog' });

    constructor(
        private readonly said: (english: string) => string,
        private readonly tell: (what: Tell, a: number, b: number) => void,
    ) {}

    mirror(grid: NativeGrid, { editor, calendar, day }: State, language: string): void {
        const { element } = this;
        const isOpen = calendar.isVisible && editor !== undefined;
        element.classList.toggle('open', isOpen);
        if (!isOpen) return;
        this.fill(grid, editor.edit, day, language);
        const { offsetWidth: width, offsetHeight: height } = element;
        if (width !== calendar.width || height !== calendar.height)
            this.tell(Tell.calendarSized, twips(width), twips(height));
        else put(element, calendar);
    }

    private fill(grid: NativeGrid, edit: number, chosen: number, language: string): void {
        const locale = new Intl.Locale(language) as Intl.Locale & { getWeekInfo?(): { firstDay: number } };
        const firstWeekday = ((locale.getWeekInfo?.().firstDay ?? 1) + 6) % 7;
        const text = (date: number, options: Intl.DateTimeFormatOptions) =>
            new Date(Date.UTC(Math.floor(date / 10000), (Math.floor(date / 100) % 100) - 1, date % 100))
                .toLocaleDateString(language, { ...options, timeZone: 'UTC' });
        const turn = (sign: string, label: string, months: number) =>
            makeButton(sign, this.said(label), () => this.tell(Tell.calendarTurned, edit, months));
        const title = make('span', { textContent: text(chosen, { month: 'long', year: 'numeric' }) });
        const month = grid.ask('month', firstWeekday);
        const days = month.all(() => {
            const [date, flags] = [month.number(), month.number()];
            const day = make('div', { className: 'day', textContent: String(date % 100) });
            day.dataset.date = String(date);
            day.classList.toggle('today', (flags & Day.Today) !== 0);
            day.classList.toggle('other', (flags & Day.OtherMonth) !== 0);
            day.ariaDisabled = String((flags & Day.OutOfRange) !== 0);
            day.onclick = () => this.tell(Tell.calendarPicked, edit, date);
            if (flags & Day.Chosen) {
                day.id = 'chosen-day';
                day.ariaLabel = text(date, { dateStyle: 'full' });
            }
            return day;
        });
        const weekdays = days.slice(0, 7).map(({ dataset }) => {
            const textContent = text(Number(dataset.date), { weekday: 'short' });
            return make('div', { className: 'weekday', textContent });
        });
        this.element.replaceChildren(
            make('header', {}, turn('«', 'Previous year', -12), turn('‹', 'Previous month', -1), title,
                turn('›', 'Next month', 1), turn('»', 'Next year', 12)),
            make('div', { className: 'month' }, ...weekdays, ...days),
        );
    }
}
