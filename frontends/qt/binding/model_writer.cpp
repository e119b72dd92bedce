#include <tablio/qt/tablio_model_writer.h>

#include <tablio/qt/tablio_model_binding.h>

namespace tablio::qt {

int TablioModelWriter::insert() {
    const int row = model_.rowCount();
    if (model_.insertRow(row))
        return row;
    setTrouble({TablioWriteTrouble::Refused, TablioModelBinding::tr("no row can be added")});
    return -1;
}

bool TablioModelWriter::submit(int /*row*/) {
    if (model_.submit())
        return true;
    setTrouble({TablioWriteTrouble::Refused, TablioModelBinding::tr("the row is not taken")});
    return false;
}

void TablioModelWriter::revert(int row, bool isNew) {
    const QPersistentModelIndex kept(model_.index(row, 0));
    model_.revert();
    if (isNew && kept.isValid())
        model_.removeRow(kept.row());
}

bool TablioModelWriter::remove(int row) {
    if (model_.removeRow(row) && model_.submit())
        return true;
    setTrouble({TablioWriteTrouble::Refused, TablioModelBinding::tr("the row cannot be removed")});
    return false;
}

} // namespace tablio::qt
