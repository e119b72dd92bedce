/** The package's one module: importing it loads the control and defines `<tablio-grid>`. */

import { TablioModule } from './element/native.js';
import { TablioGrid } from './element/tablio_grid.js';

TablioGrid.module = await TablioModule.load(fetch(new URL('tablio.wasm', import.meta.url)));
customElements.define('tablio-grid', TablioGrid);

export { TablioError } from './element/native.js';
export { TablioGrid };
export {
    TCalcStyle, TColumnAlignment, TColumnStyle, TColumnType, TDataType, TEntryRules,
} from './members/member_table.js';
