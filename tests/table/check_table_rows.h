#pragma once
// Rows for the check table tests.

#include "table/multi_check_box_model.h"

#include <QStringList>

inline std::shared_ptr<CMultiCheckboxTableRowItem> MakeRow(const QString &key, const QStringList &texts,
                                                           bool checked = false, bool enabled = true)
{
    auto row = std::make_shared<CMultiCheckboxTableRowItem>(key);
    CMultiCheckboxTableRowItem::CellItems cells;
    for (const QString &text : texts)
        cells.push_back(std::make_shared<const CMultiCheckBoxCellItem>(text, QVariant(key)));
    row->SetCellItems(cells);
    row->SetCheckState(checked);
    row->SetEnableChangeCheckState(enabled);
    return row;
}

// Primary keys of the rows on show, in order.
inline QStringList Shown(const CMultiCheckBoxModel &model)
{
    QStringList keys;
    for (unsigned int i = 0; model.GetRowItem(i); ++i)
        keys << model.GetRowItem(i)->GetPrimaryKey();
    return keys;
}
