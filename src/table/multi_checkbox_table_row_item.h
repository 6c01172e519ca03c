#pragma once
// CMultiCheckBoxCellItem and CMultiCheckboxTableRowItem: the cell and the row of the
// check-box table and of the selected-field list.
//
// A row has a primary key (its identity across models, views and selections), a check
// state, a flag that locks the check state against the user and the head check, and one
// shared, read-only cell for each column. Rows travel between the table, the list and
// the column manager as std::shared_ptr, so that one row object carries one check state
// for all of them: hold std::shared_ptr<CMultiCheckboxTableRowItem> where you change a
// row and std::shared_ptr<const CMultiCheckboxTableRowItem> where you only read it.
//
// Copying a row (copy constructor or operator=) is deep: the copy gets cells of its own,
// so changing one never shows in the other. SetCellItems, on the other hand, shares the
// cell objects it is given.

#include "foundation/kelvocontrol_export.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <string>
#include <vector>

class KELVOCONTROL_EXPORT CMultiCheckBoxCellItem
{
public:
    CMultiCheckBoxCellItem();
    CMultiCheckBoxCellItem(const QString &text, QVariant user_data);
    CMultiCheckBoxCellItem(const CMultiCheckBoxCellItem &other);
    CMultiCheckBoxCellItem &operator=(const CMultiCheckBoxCellItem &other);
    ~CMultiCheckBoxCellItem();

    // The text shown in the cell and searched by the keyword filter.
    const QString &GetDisplayText() const;
    // The same text in UTF-8.
    std::string GetStdDisplayText() const;
    // Whatever the client attached; the library never reads it.
    const QVariant &GetUserData() const;

    void SetDisplayText(const QString &text);
    void SetUserData(const QVariant &user_data);

private:
    QString m_displayText;
    QVariant m_userData;
};

class KELVOCONTROL_EXPORT CMultiCheckboxTableRowItem
{
public:
    using CellItems = std::vector<std::shared_ptr<const CMultiCheckBoxCellItem>>;

    explicit CMultiCheckboxTableRowItem(const QString &primary_key);
    CMultiCheckboxTableRowItem(const CMultiCheckboxTableRowItem &other);
    CMultiCheckboxTableRowItem &operator=(const CMultiCheckboxTableRowItem &other);
    ~CMultiCheckboxTableRowItem();

    // One cell for each column, in column order.
    const CellItems &GetCellItems() const;
    void SetCellItems(const CellItems &cells);
    unsigned int GetCellItemsSize() const;
    // The cell of `column`; empty past the end.
    std::shared_ptr<const CMultiCheckBoxCellItem> GetRowItem(unsigned int column) const;

    bool GetCheckState() const;
    void SetCheckState(bool checked);
    // False locks the check state against clicks and the head check.
    bool GetEnableChangeCheckState() const;
    void SetEnableChangeCheckState(bool enable);

    const QString &GetPrimaryKey() const;
    // The key in UTF-8.
    std::string GetStdPrimaryKey() const;
    void SetPrimaryKey(const QString &primary_key);

private:
    void DeepCopy(const CMultiCheckboxTableRowItem &other);

    CellItems m_cells;
    QString m_primaryKey;
    bool m_checkState = false;
    bool m_enableChangeCheckState = true;
};
