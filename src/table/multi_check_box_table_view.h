#pragma once
// CMultiCheckBoxTableView: a table with one check-box column and a tri-state head check
// in that column's header, with a keyword filter and floating scroll bars.
//
// Construct it, then call InitTableView (virtual: a derived table supplies its own
// model, proxy, header or delegate by overriding the four factories), then in this
// order SetHorizontalHeaderLabels, SetCheckableColumnAttribute, SetColumnTextAlign,
// SetModelData and SetDefaultColumnWidth. Until InitTableView has run the other calls
// do nothing. A click in the check column toggles that row and emits RowItemClicked; a
// click on the check column's header checks or clears every free row on show and emits
// AllItemsSelectChanged. Connect a line edit's text to FilterDataByKeyWord for a live
// filter (see CMultiCheckBoxModel for what matches).
//
// Ownership: the header and the floating bars belong to the table. The model, the proxy
// and the delegate are made without a parent and the table never deletes them; the
// client does (model()->sourceModel(), model() and itemDelegate() reach them), after
// the table or by giving them a parent that outlives it.
//
// The table follows the scale: ScaleChanged passes it to the model (check pictures) and
// the header (check position) before the table's own sizes; rows are 30 logical pixels.
//
// Style sheet: the table is "multi_checkbox_tableview", its header
// "multi_checkbox_headerview", the floating bars "SuspendedScrollBar". ::item:hover
// covers the whole row under the pointer; ::indicator is a cell's check box. The table
// holds no colour of its own.

#include "foundation/kelvocontrol_export.h"
#include "table/multi_checkbox_table_row_item.h"

#include "uilib/table_view.h"

#include <QHeaderView>
#include <QStyledItemDelegate>

#include <memory>
#include <string>
#include <vector>

class CFloatingScrollBar;
class CMultiCheckBoxModel;
class QSortFilterProxyModel;
class QStyleOptionHeader;

// The header of CMultiCheckBoxTableView: draws the head check picture before the label
// of the checkable column, and a left click anywhere on that section moves the head
// check on (the model decides to what). Object name "multi_checkbox_headerview".
class KELVOCONTROL_EXPORT CMultiCheckBoxHeaderView : public QHeaderView
{
    Q_OBJECT
public:
    CMultiCheckBoxHeaderView(float scale, Qt::Orientation orientation, QWidget *parent);
    ~CMultiCheckBoxHeaderView() override;

    // Stores the scale; the table repaints.
    void ScaleChanged(float scale);
    // `role` asks the model which column is the checkable one; `indent` (logical pixels)
    // places the check picture from the section's left edge.
    void SetCheckableColumnAttribute(int role, unsigned int indent);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const override;

private:
    void DrawWithCheckBoxSection(QPainter *painter, const QRect &rect, int logicalIndex) const;
    void InitStyleOption(QStyleOptionHeader *option, int section) const;
    void UpdateCheckBoxNextStatus(int logicalIndex);

    float m_scale;
    int m_attributeRole = -1;
    unsigned int m_checkBoxIndent = 10;
};

// The delegate of CMultiCheckBoxTableView: the hovered row is drawn hovered in every
// cell, no focus frame is drawn, and with SetRowCheckedEnable(true) the last pressed
// row is drawn selected (the table turns that off in InitTableView).
class KELVOCONTROL_EXPORT CMultiCheckBoxViewDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit CMultiCheckBoxViewDelegate(QObject *parent);
    ~CMultiCheckBoxViewDelegate() override;

    int GetCurrentHoverRow() const;
    void SetCurrentHoverRow(int row);
    int GetCurrentCheckedRow() const;
    void SetCurrentCheckedRow(int row);
    void SetRowCheckedEnable(bool enable);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    int m_currentHoverRow = -1;
    int m_currentCheckedRow = -1;
    bool m_rowCheckedEnable = true;
};

class KELVOCONTROL_EXPORT CMultiCheckBoxTableView : public TTableView
{
    Q_OBJECT
public:
    using RowItemPtr = std::shared_ptr<CMultiCheckboxTableRowItem>;
    using ConstRowItemPtr = std::shared_ptr<const CMultiCheckboxTableRowItem>;

    CMultiCheckBoxTableView(float scale, QWidget *parent);
    ~CMultiCheckBoxTableView() override;

    // Builds the parts through the factories and wires them; call once, after construction.
    virtual void InitTableView();

    void AddRowItem(const RowItemPtr &row);
    bool DeleteRowItem(const QString &primary_key);
    void FilterDataByKeyWord(const std::wstring &keyword);
    std::vector<ConstRowItemPtr> GetAllSelectedItems();
    // The row at a row number of the table; empty past the end.
    ConstRowItemPtr GetRowItem(unsigned int row) const;
    void SetHorizontalHeaderLabels(const QStringList &labels);
    // Shows these row objects (shared, not copied).
    void SetModelData(const std::vector<RowItemPtr> &rows);
    // What Reset returns to (as deep copies).
    void SetResetModelData(const std::vector<ConstRowItemPtr> &rows);
    void Reset();
    void SetColumnTextAlign(unsigned int column, const int &alignment);

    // The checkable column, the role by which the header asks for it, and the indent of
    // the head check picture in logical pixels.
    void SetCheckableColumnAttribute(const int &column, const int &role, unsigned int indent);
    // Logical widths of the first columns, in order.
    void SetDefaultColumnWidth(const std::vector<int> &widths);
    // Qt::ScrollBarAlwaysOff keeps the floating bar from coming up again (one on show
    // stays until it next hides); any other policy allows it and shows it only while the
    // pointer is over the table. Until called, a bar shows whenever there is a range.
    void SetFloatScrollBarPolicy(Qt::Orientation orientation, Qt::ScrollBarPolicy policy) const;
    CFloatingScrollBar *HorizontalFloatScrollBar() const;
    CFloatingScrollBar *VerticalFloatScrollBar() const;
    // Row number of the row with this key; -1 if none is on show.
    int GetRowItemIndex(const QString &primary_key) const;

    void ScaleChanged(float scale) override;

public Q_SLOTS:
    // Sets a row's state by key without a signal of this table; false if the row is not
    // on show (hidden by the keyword or absent).
    bool OnRowSelectedStateChanged(const QString &primary_key, bool selected);

Q_SIGNALS:
    // A click toggled the check of `row` (a row number of the table).
    void RowItemClicked(int row, bool bSelected);
    // A click on the head check; true when it left every row on show checked.
    void AllItemsSelectChanged(bool bSelected);

protected:
    virtual CMultiCheckBoxModel *CheckableTableViewModel();
    virtual QSortFilterProxyModel *CheckableTableViewFilterModel();
    virtual CMultiCheckBoxHeaderView *CheckableTableViewHeaderView();
    virtual CMultiCheckBoxViewDelegate *CheckableTableViewDelegate();

    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private Q_SLOTS:
    void OnCellItemSelectChanged(const QModelIndex &index);
    void OnCheckableColumnStateChanged(Qt::CheckState state);

private:
    void InitModel(CMultiCheckBoxModel *model);
    void InitFilterModel(QSortFilterProxyModel *filter_model);
    void InitHeaderView(CMultiCheckBoxHeaderView *header_view);
    void InitViewDelegate(CMultiCheckBoxViewDelegate *delegate);
    void InitFloatScrollBars();
    void InitDefaultAttributes();

    struct Private;
    std::unique_ptr<Private> d;
};
