#include "table/multi_checkbox_table_row_item.h"

#include <utility>

CMultiCheckBoxCellItem::CMultiCheckBoxCellItem() = default;

CMultiCheckBoxCellItem::CMultiCheckBoxCellItem(const QString &text, QVariant user_data)
    : m_displayText(text)
    , m_userData(std::move(user_data))
{
}

CMultiCheckBoxCellItem::CMultiCheckBoxCellItem(const CMultiCheckBoxCellItem &other) = default;

CMultiCheckBoxCellItem &CMultiCheckBoxCellItem::operator=(const CMultiCheckBoxCellItem &other) = default;

CMultiCheckBoxCellItem::~CMultiCheckBoxCellItem() = default;

const QString &CMultiCheckBoxCellItem::GetDisplayText() const
{
    return m_displayText;
}

std::string CMultiCheckBoxCellItem::GetStdDisplayText() const
{
    return m_displayText.toStdString();
}

const QVariant &CMultiCheckBoxCellItem::GetUserData() const
{
    return m_userData;
}

void CMultiCheckBoxCellItem::SetDisplayText(const QString &text)
{
    m_displayText = text;
}

void CMultiCheckBoxCellItem::SetUserData(const QVariant &user_data)
{
    m_userData = user_data;
}

CMultiCheckboxTableRowItem::CMultiCheckboxTableRowItem(const QString &primary_key)
    : m_primaryKey(primary_key)
{
}

CMultiCheckboxTableRowItem::CMultiCheckboxTableRowItem(const CMultiCheckboxTableRowItem &other)
{
    DeepCopy(other);
}

CMultiCheckboxTableRowItem &CMultiCheckboxTableRowItem::operator=(const CMultiCheckboxTableRowItem &other)
{
    if (this != &other)
        DeepCopy(other);
    return *this;
}

CMultiCheckboxTableRowItem::~CMultiCheckboxTableRowItem() = default;

void CMultiCheckboxTableRowItem::DeepCopy(const CMultiCheckboxTableRowItem &other)
{
    m_primaryKey = other.m_primaryKey;
    m_checkState = other.m_checkState;
    m_enableChangeCheckState = other.m_enableChangeCheckState;
    // Built aside first: `other` may hold cells that only this row keeps alive.
    CellItems cells;
    cells.reserve(other.m_cells.size());
    for (const auto &cell : other.m_cells)
        cells.push_back(cell ? std::make_shared<const CMultiCheckBoxCellItem>(*cell) : nullptr);
    m_cells = std::move(cells);
}

const CMultiCheckboxTableRowItem::CellItems &CMultiCheckboxTableRowItem::GetCellItems() const
{
    return m_cells;
}

void CMultiCheckboxTableRowItem::SetCellItems(const CellItems &cells)
{
    m_cells = cells;
}

unsigned int CMultiCheckboxTableRowItem::GetCellItemsSize() const
{
    return static_cast<unsigned int>(m_cells.size());
}

std::shared_ptr<const CMultiCheckBoxCellItem> CMultiCheckboxTableRowItem::GetRowItem(unsigned int column) const
{
    if (column >= m_cells.size())
        return {};
    return m_cells[column];
}

bool CMultiCheckboxTableRowItem::GetCheckState() const
{
    return m_checkState;
}

void CMultiCheckboxTableRowItem::SetCheckState(bool checked)
{
    m_checkState = checked;
}

bool CMultiCheckboxTableRowItem::GetEnableChangeCheckState() const
{
    return m_enableChangeCheckState;
}

void CMultiCheckboxTableRowItem::SetEnableChangeCheckState(bool enable)
{
    m_enableChangeCheckState = enable;
}

const QString &CMultiCheckboxTableRowItem::GetPrimaryKey() const
{
    return m_primaryKey;
}

std::string CMultiCheckboxTableRowItem::GetStdPrimaryKey() const
{
    return m_primaryKey.toStdString();
}

void CMultiCheckboxTableRowItem::SetPrimaryKey(const QString &primary_key)
{
    m_primaryKey = primary_key;
}
