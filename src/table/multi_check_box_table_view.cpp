#include "table/multi_check_box_table_view.h"

#include "table/floating_scroll_bar.h"
#include "table/multi_check_box_model.h"

#include <QIcon>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QSortFilterProxyModel>
#include <QStyleOptionHeader>

// The proxy between the model and the table. It filters nothing (the model filters by
// itself); it is the seam through which a derived table puts in a proxy of its own.
class CMultiCheckBoxFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit CMultiCheckBoxFilterModel(QObject *parent)
        : QSortFilterProxyModel(parent)
    {
    }

protected:
    bool filterAcceptsRow(int, const QModelIndex &) const override { return true; }
};

CMultiCheckBoxHeaderView::CMultiCheckBoxHeaderView(float scale, Qt::Orientation orientation, QWidget *parent)
    : QHeaderView(orientation, parent)
    , m_scale(scale)
{
    setObjectName(QStringLiteral("multi_checkbox_headerview"));
    setMouseTracking(true);
}

CMultiCheckBoxHeaderView::~CMultiCheckBoxHeaderView() = default;

void CMultiCheckBoxHeaderView::ScaleChanged(float scale)
{
    m_scale = scale;
}

void CMultiCheckBoxHeaderView::SetCheckableColumnAttribute(int role, unsigned int indent)
{
    m_attributeRole = role;
    m_checkBoxIndent = indent;
}

void CMultiCheckBoxHeaderView::mousePressEvent(QMouseEvent *event)
{
    const int logical = logicalIndexAt(event->pos());
    // The whole section is the hit area; the model decides the next state.
    if (model() && event->button() == Qt::LeftButton &&
        model()->headerData(logical, orientation(), m_attributeRole).toInt() == logical)
        UpdateCheckBoxNextStatus(logical);
    QHeaderView::mousePressEvent(event);
}

void CMultiCheckBoxHeaderView::paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const
{
    if (model() && model()->headerData(logicalIndex, orientation(), m_attributeRole).toInt() == logicalIndex)
        DrawWithCheckBoxSection(painter, rect, logicalIndex);
    else
        QHeaderView::paintSection(painter, rect, logicalIndex);
}

void CMultiCheckBoxHeaderView::DrawWithCheckBoxSection(QPainter *painter, const QRect &rect, int logicalIndex) const
{
    painter->save();
    painter->setClipRect(rect, Qt::IntersectClip);

    QStyleOptionHeader option;
    InitStyleOption(&option, logicalIndex);
    option.rect = rect;
    style()->drawControl(QStyle::CE_Header, &option, painter, this);

    const QVariant image = model()->headerData(logicalIndex, orientation(), Qt::CheckStateRole);
    if (image.canConvert<QPixmap>()) {
        const QPixmap pixmap = image.value<QPixmap>();
        const int offset = int(float(m_checkBoxIndent + 3) * m_scale);
        painter->drawPixmap(rect.left() + offset, rect.top() + (rect.height() - pixmap.height()) / 2, pixmap);

        QRect textRect = rect;
        textRect.setLeft(rect.left() + pixmap.width() + int(17.0f * m_scale) + offset);
        option.rect = textRect;
        option.text = model()->headerData(logicalIndex, orientation(), Qt::DisplayRole).toString();
        style()->drawControl(QStyle::CE_HeaderLabel, &option, painter, this);
    }
    painter->restore();
}

void CMultiCheckBoxHeaderView::InitStyleOption(QStyleOptionHeader *option, int section) const
{
    initStyleOption(option);
    if (isEnabled())
        option->state |= QStyle::State_Enabled;
    if (window()->isActiveWindow())
        option->state |= QStyle::State_Active;
    option->section = section;
    const QVariant alignment = model()->headerData(section, orientation(), Qt::TextAlignmentRole);
    if (alignment.isValid())
        option->textAlignment = Qt::Alignment(alignment.toInt());
    option->iconAlignment = Qt::AlignVCenter;

    const QVariant decoration = model()->headerData(section, orientation(), Qt::DecorationRole);
    QIcon icon = qvariant_cast<QIcon>(decoration);
    if (icon.isNull())
        icon = QIcon(qvariant_cast<QPixmap>(decoration));
    option->icon = icon;

    const QVariant foreground = model()->headerData(section, orientation(), Qt::ForegroundRole);
    if (foreground.canConvert<QBrush>())
        option->palette.setBrush(QPalette::ButtonText, qvariant_cast<QBrush>(foreground));
    const QVariant background = model()->headerData(section, orientation(), Qt::BackgroundRole);
    if (background.canConvert<QBrush>()) {
        option->palette.setBrush(QPalette::Button, qvariant_cast<QBrush>(background));
        option->palette.setBrush(QPalette::Window, qvariant_cast<QBrush>(background));
    }
}

void CMultiCheckBoxHeaderView::UpdateCheckBoxNextStatus(int logicalIndex)
{
    model()->setHeaderData(logicalIndex, Qt::Horizontal, QVariant(), Qt::CheckStateRole);
}

CMultiCheckBoxViewDelegate::CMultiCheckBoxViewDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

CMultiCheckBoxViewDelegate::~CMultiCheckBoxViewDelegate() = default;

int CMultiCheckBoxViewDelegate::GetCurrentHoverRow() const
{
    return m_currentHoverRow;
}

void CMultiCheckBoxViewDelegate::SetCurrentHoverRow(int row)
{
    m_currentHoverRow = row;
}

int CMultiCheckBoxViewDelegate::GetCurrentCheckedRow() const
{
    return m_currentCheckedRow;
}

void CMultiCheckBoxViewDelegate::SetCurrentCheckedRow(int row)
{
    m_currentCheckedRow = row;
}

void CMultiCheckBoxViewDelegate::SetRowCheckedEnable(bool enable)
{
    m_rowCheckedEnable = enable;
}

void CMultiCheckBoxViewDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    QStyleOptionViewItem view_option(option);
    view_option.state &= ~QStyle::State_HasFocus;
    if (!m_rowCheckedEnable)
        view_option.state &= ~QStyle::State_Selected;
    else if (index.row() == m_currentCheckedRow)
        view_option.state |= QStyle::State_Selected;
    if (index.row() == m_currentHoverRow)
        view_option.state |= QStyle::State_MouseOver;
    else
        view_option.state &= ~QStyle::State_MouseOver;
    QStyledItemDelegate::paint(painter, view_option, index);
}

// Owns nothing; guarded, as the client may delete model, proxy or delegate first.
struct CMultiCheckBoxTableView::Private {
    QPointer<CMultiCheckBoxModel> model;
    QPointer<CMultiCheckBoxHeaderView> headerView;
    QPointer<CMultiCheckBoxViewDelegate> delegate;
    QPointer<QSortFilterProxyModel> filterModel;
    QPointer<CFloatingScrollBar> verticalBar;
    QPointer<CFloatingScrollBar> horizontalBar;
    bool initialized = false;
};

CMultiCheckBoxTableView::CMultiCheckBoxTableView(float scale, QWidget *parent)
    : TTableView(scale, parent)
    , d(new Private)
{
    setObjectName(QStringLiteral("multi_checkbox_tableview"));
    setMouseTracking(true);
}

CMultiCheckBoxTableView::~CMultiCheckBoxTableView() = default;

void CMultiCheckBoxTableView::InitTableView()
{
    if (d->initialized)
        return;
    d->initialized = true;
    InitModel(CheckableTableViewModel());
    InitFilterModel(CheckableTableViewFilterModel());
    InitHeaderView(CheckableTableViewHeaderView());
    InitViewDelegate(CheckableTableViewDelegate());
    InitFloatScrollBars();
    InitDefaultAttributes();
    connect(this, &QAbstractItemView::clicked, this, &CMultiCheckBoxTableView::OnCellItemSelectChanged);
}

void CMultiCheckBoxTableView::InitModel(CMultiCheckBoxModel *model)
{
    d->model = model ? model : new CMultiCheckBoxModel(m_scale, nullptr);
    connect(d->model, &CMultiCheckBoxModel::CheckableColumnStateChanged, this,
            &CMultiCheckBoxTableView::OnCheckableColumnStateChanged);
}

void CMultiCheckBoxTableView::InitFilterModel(QSortFilterProxyModel *filter_model)
{
    d->filterModel = filter_model ? filter_model : new CMultiCheckBoxFilterModel(nullptr);
    d->filterModel->setSourceModel(d->model);
    setModel(d->filterModel);
}

void CMultiCheckBoxTableView::InitHeaderView(CMultiCheckBoxHeaderView *header_view)
{
    d->headerView = header_view ? header_view : new CMultiCheckBoxHeaderView(m_scale, Qt::Horizontal, nullptr);
    setHorizontalHeader(d->headerView);
}

void CMultiCheckBoxTableView::InitViewDelegate(CMultiCheckBoxViewDelegate *delegate)
{
    d->delegate = delegate ? delegate : new CMultiCheckBoxViewDelegate(nullptr);
    d->delegate->SetRowCheckedEnable(false);
    setItemDelegate(d->delegate);
}

void CMultiCheckBoxTableView::InitFloatScrollBars()
{
    d->horizontalBar = new CFloatingScrollBar(m_scale, Qt::Horizontal, this, this);
    d->verticalBar = new CFloatingScrollBar(m_scale, Qt::Vertical, this, this);
}

void CMultiCheckBoxTableView::InitDefaultAttributes()
{
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(int(30.0f * m_scale));
    // Every column stretches. Stretching the last section on top of that is left off:
    // Qt then keeps that section at the width it had when the columns came (the view's
    // size before layout) and over-fills the header, which brings up a horizontal bar
    // on a table that fits. A client that makes columns Interactive turns it on.
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setShowGrid(false);
    // The floating bars mirror the native ranges; in pixels those match what is seen,
    // where item steps leave a stretched table a spurious one-column range.
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
}

CMultiCheckBoxModel *CMultiCheckBoxTableView::CheckableTableViewModel()
{
    return new CMultiCheckBoxModel(m_scale, nullptr);
}

QSortFilterProxyModel *CMultiCheckBoxTableView::CheckableTableViewFilterModel()
{
    return new CMultiCheckBoxFilterModel(nullptr);
}

CMultiCheckBoxHeaderView *CMultiCheckBoxTableView::CheckableTableViewHeaderView()
{
    return new CMultiCheckBoxHeaderView(m_scale, Qt::Horizontal, nullptr);
}

CMultiCheckBoxViewDelegate *CMultiCheckBoxTableView::CheckableTableViewDelegate()
{
    return new CMultiCheckBoxViewDelegate(nullptr);
}

void CMultiCheckBoxTableView::AddRowItem(const RowItemPtr &row)
{
    if (d->model)
        d->model->AddRowItem(row);
}

bool CMultiCheckBoxTableView::DeleteRowItem(const QString &primary_key)
{
    return d->model && d->model->DeleteRowItem(primary_key);
}

void CMultiCheckBoxTableView::FilterDataByKeyWord(const std::wstring &keyword)
{
    if (d->model)
        d->model->FilterDataByKeyWord(keyword);
}

std::vector<CMultiCheckBoxTableView::ConstRowItemPtr> CMultiCheckBoxTableView::GetAllSelectedItems()
{
    return d->model ? d->model->GetAllSelectedItems() : std::vector<ConstRowItemPtr>();
}

CMultiCheckBoxTableView::ConstRowItemPtr CMultiCheckBoxTableView::GetRowItem(unsigned int row) const
{
    return d->model ? d->model->GetRowItem(row) : ConstRowItemPtr();
}

void CMultiCheckBoxTableView::SetHorizontalHeaderLabels(const QStringList &labels)
{
    if (d->model)
        d->model->SetHorizontalHeaderLabels(labels);
}

void CMultiCheckBoxTableView::SetModelData(const std::vector<RowItemPtr> &rows)
{
    if (d->model)
        d->model->SetSourceData(rows);
}

void CMultiCheckBoxTableView::SetResetModelData(const std::vector<ConstRowItemPtr> &rows)
{
    if (d->model)
        d->model->SetResetData(rows);
}

void CMultiCheckBoxTableView::Reset()
{
    if (d->model)
        d->model->ResetSourceData();
}

void CMultiCheckBoxTableView::SetColumnTextAlign(unsigned int column, const int &alignment)
{
    if (d->model)
        d->model->SetTextAlignment(column, alignment);
}

void CMultiCheckBoxTableView::SetCheckableColumnAttribute(const int &column, const int &role, unsigned int indent)
{
    if (!d->model || !d->headerView)
        return;
    d->model->SetCheckableColumn(role, column);
    d->headerView->SetCheckableColumnAttribute(role, indent);
}

void CMultiCheckBoxTableView::SetDefaultColumnWidth(const std::vector<int> &widths)
{
    for (std::size_t i = 0; i < widths.size(); ++i)
        TTableView::setColumnWidth(int(i), widths[i]);
}

void CMultiCheckBoxTableView::SetFloatScrollBarPolicy(Qt::Orientation orientation, Qt::ScrollBarPolicy policy) const
{
    CFloatingScrollBar *bar = orientation == Qt::Horizontal ? d->horizontalBar
                              : orientation == Qt::Vertical  ? d->verticalBar
                                                             : nullptr;
    if (!bar)
        return;
    if (policy == Qt::ScrollBarAlwaysOff) {
        bar->SetVisible(false);
        return;
    }
    bar->SetVisible(true);
    bar->SetScrollBarAutoHide(true);
}

CFloatingScrollBar *CMultiCheckBoxTableView::HorizontalFloatScrollBar() const
{
    return d->horizontalBar;
}

CFloatingScrollBar *CMultiCheckBoxTableView::VerticalFloatScrollBar() const
{
    return d->verticalBar;
}

int CMultiCheckBoxTableView::GetRowItemIndex(const QString &primary_key) const
{
    const int rows = model() ? model()->rowCount() : 0;
    for (int row = 0; row < rows; ++row) {
        ConstRowItemPtr item = GetRowItem(unsigned(row));
        if (item && item->GetPrimaryKey() == primary_key)
            return row;
    }
    return -1;
}

void CMultiCheckBoxTableView::ScaleChanged(float scale)
{
    if (d->model)
        d->model->ScaleChanged(scale);
    if (d->headerView)
        d->headerView->ScaleChanged(scale);
    TTableView::ScaleChanged(scale);
    // Row height is a size of the vertical header, which the scale walk does not keep.
    if (d->initialized)
        verticalHeader()->setDefaultSectionSize(int(30.0f * m_scale));
}

bool CMultiCheckBoxTableView::OnRowSelectedStateChanged(const QString &primary_key, bool selected)
{
    if (!d->model || !d->model->SetCellItemSelectedState(primary_key, selected))
        return false;
    horizontalHeader()->update();
    return true;
}

void CMultiCheckBoxTableView::mouseMoveEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && d->delegate) {
        d->delegate->SetCurrentHoverRow(index.row());
        viewport()->update();
    }
    TTableView::mouseMoveEvent(event);
}

void CMultiCheckBoxTableView::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && d->delegate) {
        d->delegate->SetCurrentCheckedRow(index.row());
        viewport()->update();
    }
    TTableView::mousePressEvent(event);
}

void CMultiCheckBoxTableView::leaveEvent(QEvent *event)
{
    if (d->delegate)
        d->delegate->SetCurrentHoverRow(-1);
    TTableView::leaveEvent(event);
}

void CMultiCheckBoxTableView::scrollContentsBy(int dx, int dy)
{
    if (d->delegate)
        d->delegate->SetCurrentHoverRow(-1);
    TTableView::scrollContentsBy(dx, dy);
}

void CMultiCheckBoxTableView::OnCellItemSelectChanged(const QModelIndex &index)
{
    bool ok = false;
    const int state = model()->data(index, Qt::CheckStateRole).toInt(&ok);
    if (!ok)
        return;
    const int next = state == Qt::Unchecked ? Qt::Checked : Qt::Unchecked;
    if (!model()->setData(index, next, Qt::CheckStateRole))
        return;
    horizontalHeader()->update();
    emit RowItemClicked(index.row(), next == Qt::Checked);
}

void CMultiCheckBoxTableView::OnCheckableColumnStateChanged(Qt::CheckState state)
{
    emit AllItemsSelectChanged(state == Qt::Checked);
}

#include "multi_check_box_table_view.moc"
