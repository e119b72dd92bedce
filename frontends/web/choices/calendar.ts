/** The month calendar of the open date edit: the core's month in the words of the page's language. */

import { Tell, type NativeGrid } from '../element/native.js';
import { put, twips, type State } from '../element/state.js';

const enum Day { Today = 1, Chosen = 2, OtherMonth = 4, OutOfRange = 8 }

export class Calendar {
    readonly element = document.createElement('div');
    private readonly title = document.createElement('span');
    private readonly month = document.createElement('div');
    private edit = 0;
    private shown = { year: 0, month: 0, day: 0 };

    constructor(private readonly tell: (what: Tell, a: number, b: number) => void) {
        const header = document.createElement('header');
        const turn = (text: string, label: string, months: number) => {
            const button = document.createElement('button');
            button.tabIndex = -1;
            button.textContent = text;
            button.ariaLabel = label;
            button.onclick = () => this.turn(months);
            return button;
        };
        header.append(
            turn('«', 'Previous year', -12), turn('‹', 'Previous month', -1), this.title,
            turn('›', 'Next month', 1), turn('»', 'Next year', 12),
        );
        this.element.className = 'calendar';
        this.element.id = 'calendar';
        this.element.role = 'dialog';
        this.month.className = 'month';
        this.month.onclick = (event) => {
            const day = (event.target as HTMLElement).closest<HTMLElement>('.day');
            if (day?.dataset.date) tell(Tell.calendarPicked, this.edit, Number(day.dataset.date));
        };
        this.element.append(header, this.month);
    }

    mirror(grid: NativeGrid, state: State, language: string): void {
        const { element } = this;
        const isOpen = state.dateFrame.isVisible && state.editor !== undefined;
        element.classList.toggle('open', isOpen);
        if (!isOpen) return;
        this.edit = state.editor!.edit;
        this.shown = { year: state.year, month: state.month, day: state.day };
        this.fill(grid, language);
        const { offsetWidth: width, offsetHeight: height } = element;
        const { dateFrame } = state;
        if (width !== dateFrame.width || height !== dateFrame.height)
            this.tell(Tell.calendarSized, twips(width), twips(height));
        else put(element, { ...dateFrame, width, height });
    }

    private fill(grid: NativeGrid, language: string): void {
        const locale = new Intl.Locale(language) as Intl.Locale & {
            getWeekInfo?(): { firstDay: number };
        };
        const firstWeekday = ((locale.getWeekInfo?.().firstDay ?? 1) + 6) % 7;
        const text = (options: Intl.DateTimeFormatOptions, date: Date) =>
            date.toLocaleDateString(language, { ...options, timeZone: 'UTC' });
        const { year, month } = this.shown;
        this.title.textContent = text(
            { month: 'long', year: 'numeric' }, utc(year, month, 1),
        );
        const cells: HTMLElement[] = [];
        for (let weekday = 0; weekday < 7; weekday++) {
            const cell = document.createElement('div');
            cell.className = 'weekday';
            // 5 January 1970 was a Monday.
            cell.textContent = text({ weekday: 'short' }, utc(1970, 1, 5 + firstWeekday + weekday));
            cells.push(cell);
        }
        const days = grid.ask('month', firstWeekday);
        while (!days.atEnd) {
            const date = days.number();
            const flags = days.number();
            const cell = document.createElement('div');
            const names = ['day'];
            if (flags & Day.Today) names.push('today');
            if (flags & Day.Chosen) names.push('chosen');
            if (flags & Day.OtherMonth) names.push('other');
            cell.className = names.join(' ');
            cell.textContent = String(date % 100);
            cell.dataset.date = flags & Day.OutOfRange ? '' : String(date);
            cell.ariaDisabled = String((flags & Day.OutOfRange) !== 0);
            if (flags & Day.Chosen) {
                cell.id = 'chosen-day';
                cell.ariaLabel = text({ dateStyle: 'full' }, utc(year, month, date % 100));
            }
            cells.push(cell);
        }
        this.month.replaceChildren(...cells);
    }

    /** A turned page takes the chosen day along, as the core's own page keys do. */
    private turn(months: number): void {
        const { year, month, day } = this.shown;
        const first = utc(year, month + months, 1);
        const last = utc(year, month + months + 1, 0).getUTCDate();
        const date = first.getUTCFullYear() * 10000 + (first.getUTCMonth() + 1) * 100;
        this.tell(Tell.calendarMoved, this.edit, date + Math.min(day, last));
    }
}

function utc(year: number, month: number, day: number): Date {
    return new Date(Date.UTC(year, month - 1, day));
}
