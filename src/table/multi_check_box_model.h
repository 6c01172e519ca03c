#pragma once
// CMultiCheckBoxModel: the table model behind CMultiCheckBoxTableView. It holds shared
// rows (CMultiCheckboxTableRowItem), shows the ones that match a keyword, and keeps the
// tri-state head check of its check-box column.
//
// Set up in this order: SetHorizontalHeaderLabels (the labels are the columns),
// SetCheckableColumn, SetTextAlignment, then SetSourceData. The model does not copy the
// rows it is given: a row's check state lives in the row object, so the table, the
// selected-field list and the client all see one state. Every data change (set, reset,
// add, delete) rebuilds the keyword index once and filters again with the keyword in
// force, so a filter survives a change of data; emptying the rows clears the keyword.
//
// The keyword filter matches a cell's text or its phonetic forms: "ZGPA" and
// "ZHONGGUOPINGAN" find 中国平安, "YH" and "YX" both find 银行 (a character with several
// readings answers to each). A blank in the keyword stands for any run of characters,
// and so do "*", "?" and "[...]" as in a file pattern; letters are compared without
// regard to case. The head check (a click on the checkable column's header) checks or
// clears the rows on show only; rows hidden by the keyword keep their state, and locked
// rows (GetEnableChangeCheckState() false) are never changed by a click.
//
// Roles: Qt::CheckStateRole in the checkable column (2 or 0); Qt::UserRole (256) the
// row's check picture; the checkable role (356 unless set) the checkable column's
// number, in data and headerData; headerData's Qt::CheckStateRole the head check's
// picture. The pictures are the skin's "common" "check_box_normal", "check_box_checked"
// and "check_box_partially_checked" at the model's scale. All changes of rows on show go
// through beginResetModel/endResetModel.

#include "foundation/kelvocontrol_export.h"
#include "table/multi_checkbox_table_row_item.h"

#include "qtcomm/skin_helper.h"

#include <QAbstractTableModel>
#include <QPixmap>
#include <QStringList>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

class RegisterHandy;

namespace search {
class QuickSearch;
}

// A model that knows one hovered row and one checked row, for delegates that draw them.
class KELVOCONTROL_EXPORT ModelBase
{
public:
    ModelBase();
    ModelBase(const ModelBase &other);
    ModelBase &operator=(const ModelBase &other);

    // Each stores the row and returns true, or returns false when it holds that row already.
    virtual bool SetHoverRow(int row);
    virtual bool SetCheckedRow(int row);
    virtual ~ModelBase();

    int CheckedRow() const;

protected:
    int m_hoverRow = -1;
    int m_checkedRow = -1;
};

class KELVOCONTROL_EXPORT CMultiCheckBoxModel : public QAbstractTableModel, public IChangeSkinCall
{
    Q_OBJECT
public:
    using RowItemPtr = std::shared_ptr<CMultiCheckboxTableRowItem>;
    using ConstRowItemPtr = std::shared_ptr<const CMultiCheckboxTableRowItem>;

    CMultiCheckBoxModel(float scale, QObject *parent);
    ~CMultiCheckBoxModel() override;

    // Shows these row objects (shared with the caller, not copied).
    void SetSourceData(const std::vector<RowItemPtr> &rows);
    // Stores what ResetSourceData returns to; nothing on show changes.
    void SetResetData(const std::vector<ConstRowItemPtr> &rows);
    // The rows become fresh deep copies of the reset rows.
    void ResetSourceData();
    void AddRowItem(const RowItemPtr &row);
    // Removes the first row with this key; false if there is none.
    bool DeleteRowItem(const QString &primary_key);

    // The row at this row number of the model (rows on show); empty past the end.
    ConstRowItemPtr GetRowItem(unsigned int row) const;
    // Row number on show of the row with this key and as many cells as columns; -1 if none.
    int GetRowItemIndex(const QString &primary_key) const;
    // The checked rows of all rows, in the client's order, whatever the keyword.
    std::vector<ConstRowItemPtr> GetAllSelectedItems();

    // Shows the rows that match `keyword`; an empty keyword shows them all.
    void FilterDataByKeyWord(const std::wstring &keyword);
    // Sets a row's state by key, locked or not, if the row is on show; false otherwise.
    bool SetCellItemSelectedState(const QString &primary_key, bool selected);

    // The column that carries the check box (-1: none) and the role by which views ask
    // for it. Emits nothing.
    void SetCheckableColumn(int role, int column);
    int GetCheckableColumn() const;
    // The labels are the columns. Emits nothing, so call it before SetSourceData.
    void SetHorizontalHeaderLabels(const QStringList &labels);
    // Column -> Qt::Alignment value; columns without an entry are centred.
    void SetTextAlignment(const std::map<int, int> &alignment);
    // Sets one column's alignment if the column exists (labels first).
    void SetTextAlignment(unsigned int column, int alignment);

    // Stores the scale and reloads the check pictures; the owner repaints.
    void ScaleChanged(float scale);
    // Rebuilds the keyword index from `rows`. Every data change calls it.
    void BuildDataIndex(const std::vector<RowItemPtr> &rows);

Q_SIGNALS:
    // A click on the head check changed the checkable column to `new_state`.
    void CheckableColumnStateChanged(Qt::CheckState new_state);

protected:
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                       int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    void ChangedSkin(Skin::SKIN_TYPE type) override;

private:
    // One row of the keyword index. Instead of the raw cell texts it keeps the forms the
    // match compares (upper-cased texts and phonetic pieces, UTF-8), so
    // that a keystroke costs no conversions: they live in m_checkTexts, each followed by
    // a NUL, from m_checkOffsets[firstCheck] up to the next entry's first one.
    class IndexBuilder;
    struct IndexEntry {
        RowItemPtr row;
        std::size_t firstCheck;
        bool exact; // see IndexBuilder::Exact
    };
    using Index = std::vector<IndexEntry>;

    void UpdateFilterData();
    void UpdateHeadCheckedStatus();
    void UpdateHeaderViewSection();
    void UpdateAllCellItemsCheckedStatus(bool checked);
    void ReloadImageSrc();

    bool EntryMatches(std::size_t entry, const QByteArray &pattern, const QByteArray &plain) const;
    std::size_t ShownCount() const { return m_shown.size(); }
    const RowItemPtr &ShownRow(std::size_t row) const { return (*m_shownIndex)[m_shown[row]].row; }
    void EmitHeadChanged();
    void EmitCheckCellChanged(int row);

    std::vector<ConstRowItemPtr> m_resetRows;
    std::vector<RowItemPtr> m_sourceRows;
    // The rows on show are positions in the index they were filtered from, which they
    // keep alive; a keystroke thus copies no row pointers.
    std::shared_ptr<const Index> m_shownIndex;
    std::vector<unsigned int> m_shown;
    std::map<int, int> m_textAlignment;
    float m_scale = 1.0f;
    QStringList m_headerLabels;
    int m_headCheckState = Qt::Unchecked;
    std::shared_ptr<search::QuickSearch> m_search;
    std::shared_ptr<Index> m_index;
    std::string m_checkTexts;
    std::vector<std::size_t> m_checkOffsets;
    std::wstring m_keyword;
    QPixmap m_normalImage;
    QPixmap m_checkedImage;
    QPixmap m_disableImage;
    QPixmap m_partiallyCheckedImage;
    int m_checkableColumn = -1;
    int m_checkableRole = Qt::UserRole + 100;
    std::shared_ptr<RegisterHandy> m_skinHandy;
};
