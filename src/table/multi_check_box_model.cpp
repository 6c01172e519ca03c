#include "table/multi_check_box_model.h"

#include "qtcomm/image_path.h"
#include "qtcomm/register_handy.h"
#include "textengine/py_name_mgr.h"
#include "textengine/quick_search.h"
#include "textengine/safe_fnmatch.h"
#include "uilib/dpi_tool.h"

#include <algorithm>
#include <string_view>

namespace {

// The wide form the text engine takes, into a buffer that keeps its capacity.
void AssignWide(std::wstring &out, const QString &text)
{
    out.resize(std::size_t(text.size()));
    out.resize(std::size_t(text.toWCharArray(&out[0])));
}

// Phonetic pieces are plain ASCII but for exotic input; only that goes through Qt.
void AppendUtf8(std::string &out, const std::wstring &text)
{
    if (std::all_of(text.begin(), text.end(), [](wchar_t c) { return unsigned(c) < 0x80u; })) {
        out.append(text.begin(), text.end());
        return;
    }
    const QByteArray bytes = QString::fromWCharArray(text.data(), int(text.size())).toUtf8();
    out.append(bytes.constData(), std::size_t(bytes.size()));
}

// Upper case character by character, so the length never changes.
void UpperCaseInPlace(std::wstring &text)
{
    for (wchar_t &c : text) {
        if (c >= L'a' && c <= L'z')
            c = wchar_t(c - L'a' + L'A');
        else if (c > 0x7f && (sizeof(wchar_t) == 2 ? c <= 0xffff : c <= 0x10ffff))
            c = wchar_t(QChar::toUpper(char32_t(c)));
    }
}

// Whether upper-casing `text` changed nothing but ASCII letters. The phonetic forms fold
// ASCII case and skip blanks, so such a text has the forms of its trimmed upper case.
// A text with surrogates answers false too: the wide and the UTF-8 conversions need not
// agree on a broken pair.
bool OnlyAsciiCaseDiffers(const QString &text, const QString &upper)
{
    if (text.size() != upper.size())
        return false;
    for (int i = 0; i < text.size(); ++i) {
        const ushort c = text.at(i).unicode();
        if ((c != upper.at(i).unicode() && !(c >= 'a' && c <= 'z')) || QChar::isSurrogate(c))
            return false;
    }
    return true;
}

// Whether "*key*" is a pattern with no wildcard but its two stars, so that matching it
// is plain containment.
bool IsPlainKey(const QString &key)
{
    for (QChar c : key) {
        if (c == QLatin1Char('*') || c == QLatin1Char('?') || c == QLatin1Char('[') || c == QLatin1Char('\\') ||
            c == QLatin1Char(' ') || c.isNull())
            return false;
    }
    return true;
}

// A row's texts lie three objects deep on the heap (row, cell, string), which in a large
// table are rarely in cache. Each level is fetched some rows ahead of its use, from the
// level fetched before it, so that reading the texts of row i waits for none of them.
void FetchAhead(const std::vector<CMultiCheckBoxModel::RowItemPtr> &rows, std::size_t i)
{
#if defined(__GNUC__)
    const std::size_t n = rows.size();
    if (i + 12 < n && rows[i + 12])
        __builtin_prefetch(rows[i + 12].get());
    if (i + 8 < n && rows[i + 8])
        __builtin_prefetch(rows[i + 8]->GetCellItems().data());
    if (i + 4 < n && rows[i + 4]) {
        for (const auto &cell : rows[i + 4]->GetCellItems())
            __builtin_prefetch(cell.get());
    }
    if (i + 2 < n && rows[i + 2]) {
        for (const auto &cell : rows[i + 2]->GetCellItems()) {
            if (cell)
                __builtin_prefetch(const_cast<QString &>(cell->GetDisplayText()).data_ptr());
        }
    }
#else
    (void)rows;
    (void)i;
#endif
}

} // namespace

// Builds one index: files the texts of each row in the search service (which drops a
// row's repeats) and collects the row's compare forms (UTF-8) in the model's text store.
class CMultiCheckBoxModel::IndexBuilder
{
public:
    IndexBuilder(search::QuickSearch &search, std::string &texts, std::vector<std::size_t> &offsets)
        : m_search(search)
        , m_texts(texts)
        , m_offsets(offsets)
        , m_py(PyNameMgr::GetInstance())
    {
    }

    void BeginRow(int id)
    {
        m_id = id;
        m_exact = true;
        m_firstCheck = m_offsets.size();
    }

    void AddText(const QString &text)
    {
        if (AddAsciiText(text))
            return;
        const QString upper = text.toUpper();
        AssignWide(m_wide, upper);
        FileTrimmedWide();

        const std::size_t mark = m_texts.size();
        const QByteArray bytes = upper.toUtf8();
        m_texts.append(bytes.constData(), std::size_t(bytes.size()));
        Keep(mark);

        // The compare forms are the phonetic pieces of the text as it stands; they are
        // those of the upper case unless upper-casing went beyond ASCII letters. Then
        // both sets are filed, and the row's compare forms are no longer exactly its
        // filed texts (see Exact).
        const bool same = OnlyAsciiCaseDiffers(text, upper);
        AddPieces(m_key, true, same);
        if (!same) {
            AssignWide(m_original, text);
            AddPieces(m_original, true, true);
            m_exact = false;
        }
    }

    std::size_t FirstCheck() const { return m_firstCheck; }
    // Whether the row's filed texts contain a key without wildcards exactly when its
    // compare forms do, so that the search service's answer needs no confirming. The
    // filed texts are trimmed, but a trimmed key occurs in a text only within its
    // trimmed span.
    bool Exact() const { return m_exact; }

private:
    // Files m_wide without its leading and trailing blanks, kept in m_key.
    void FileTrimmedWide()
    {
        std::size_t begin = 0, end = m_wide.size();
        while (begin < end && QChar::isSpace(char32_t(m_wide[begin])))
            ++begin;
        while (end > begin && QChar::isSpace(char32_t(m_wide[end - 1])))
            --end;
        m_key.assign(m_wide, begin, end - begin);
        File(m_key);
    }

    // A text of ASCII only (codes, English names) needs neither Qt's case mapping nor the
    // phonetic tables: its upper case is ASCII, and both of its phonetic forms are its
    // letters and digits, upper-cased. Does what the general path does, for such a text.
    bool AddAsciiText(const QString &text)
    {
        const int size = text.size();
        const QChar *chars = text.constData();
        for (int i = 0; i < size; ++i) {
            if (chars[i].unicode() >= 0x80)
                return false;
        }
        m_wide.resize(std::size_t(size));
        m_piece.clear();
        bool spelled = true; // the phonetic forms see the text up to its first NUL
        for (int i = 0; i < size; ++i) {
            wchar_t c = wchar_t(chars[i].unicode());
            if (c >= L'a' && c <= L'z')
                c = wchar_t(c - L'a' + L'A');
            m_wide[std::size_t(i)] = c;
            spelled = spelled && c != 0;
            if (spelled && ((c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9')))
                m_piece += c;
        }
        FileTrimmedWide();

        std::size_t mark = m_texts.size();
        m_texts.append(m_wide.begin(), m_wide.end());
        Keep(mark);

        // Both forms are the one piece; the second would be a repeat of the first. So is
        // the piece of a code, which is the code itself.
        if (!m_piece.empty() && m_piece != m_wide) {
            File(m_piece);
            mark = m_texts.size();
            m_texts.append(m_piece.begin(), m_piece.end());
            Keep(mark);
        }
        return true;
    }

    void AddPieces(const std::wstring &text, bool file, bool check)
    {
        for (int form = 0; form < 2; ++form) {
            m_forms = form == 0 ? m_py->GetFullSpell(text.c_str(), 0) : m_py->GetInitialSpell(text.c_str(), 0);
            UpperCaseInPlace(m_forms);
            std::size_t start = 0;
            while (start < m_forms.size()) {
                std::size_t stop = m_forms.find(L' ', start);
                if (stop == std::wstring::npos)
                    stop = m_forms.size();
                if (stop > start) {
                    m_piece.assign(m_forms, start, stop - start);
                    if (file)
                        File(m_piece);
                    if (check) {
                        const std::size_t mark = m_texts.size();
                        AppendUtf8(m_texts, m_piece);
                        Keep(mark);
                    }
                }
                start = stop + 1;
            }
        }
    }

    // The service keeps a text once per id and turns repeats away itself.
    void File(const std::wstring &text) { m_search.InsertSearchIndex(text, m_id); }

    // Ends the form just appended at `mark`. A repeat of a form is kept too: looking for
    // it costs more than checking it once more.
    void Keep(std::size_t mark)
    {
        m_offsets.push_back(mark);
        m_texts += '\0';
    }

    search::QuickSearch &m_search;
    std::string &m_texts;
    std::vector<std::size_t> &m_offsets;
    PyNameMgr *m_py;
    int m_id = 0;
    bool m_exact = true;
    std::size_t m_firstCheck = 0;
    std::wstring m_key, m_wide, m_original, m_forms, m_piece;
};

ModelBase::ModelBase() = default;

ModelBase::ModelBase(const ModelBase &other) = default;

ModelBase &ModelBase::operator=(const ModelBase &other) = default;

ModelBase::~ModelBase() = default;

bool ModelBase::SetHoverRow(int row)
{
    if (m_hoverRow == row)
        return false;
    m_hoverRow = row;
    return true;
}

bool ModelBase::SetCheckedRow(int row)
{
    if (m_checkedRow == row)
        return false;
    m_checkedRow = row;
    return true;
}

int ModelBase::CheckedRow() const
{
    return m_checkedRow;
}

CMultiCheckBoxModel::CMultiCheckBoxModel(float scale, QObject *parent)
    : QAbstractTableModel(parent)
    , m_search(std::make_shared<search::QuickSearch>())
    , m_index(std::make_shared<Index>())
{
    m_shownIndex = m_index;
    m_scale = DpiTool::IsValidScale(scale) ? scale : DpiTool::ScaleOf(parent);
    ReloadImageSrc();
    m_skinHandy = std::make_shared<RegisterHandy>(this, Skin::PRIORITY_NORMAL);
}

CMultiCheckBoxModel::~CMultiCheckBoxModel() = default;

void CMultiCheckBoxModel::SetSourceData(const std::vector<RowItemPtr> &rows)
{
    m_sourceRows = rows;
    // A null row would have nothing to show or check; it is dropped.
    m_sourceRows.erase(std::remove(m_sourceRows.begin(), m_sourceRows.end(), nullptr), m_sourceRows.end());
    UpdateFilterData();
    UpdateHeadCheckedStatus();
}

void CMultiCheckBoxModel::SetResetData(const std::vector<ConstRowItemPtr> &rows)
{
    m_resetRows = rows;
}

void CMultiCheckBoxModel::ResetSourceData()
{
    std::vector<RowItemPtr> rows;
    rows.reserve(m_resetRows.size());
    for (const ConstRowItemPtr &row : m_resetRows) {
        if (row)
            rows.push_back(std::make_shared<CMultiCheckboxTableRowItem>(*row));
    }
    m_sourceRows = std::move(rows);
    UpdateFilterData();
    UpdateHeadCheckedStatus();
}

void CMultiCheckBoxModel::AddRowItem(const RowItemPtr &row)
{
    if (!row)
        return;
    m_sourceRows.push_back(row);
    UpdateFilterData();
}

bool CMultiCheckBoxModel::DeleteRowItem(const QString &primary_key)
{
    auto it = std::find_if(m_sourceRows.begin(), m_sourceRows.end(),
                           [&](const RowItemPtr &row) { return row->GetPrimaryKey() == primary_key; });
    if (it == m_sourceRows.end())
        return false;
    m_sourceRows.erase(it);
    UpdateFilterData();
    return true;
}

CMultiCheckBoxModel::ConstRowItemPtr CMultiCheckBoxModel::GetRowItem(unsigned int row) const
{
    if (row >= ShownCount())
        return {};
    return ShownRow(row);
}

int CMultiCheckBoxModel::GetRowItemIndex(const QString &primary_key) const
{
    const unsigned int columns = static_cast<unsigned int>(m_headerLabels.size());
    for (std::size_t i = 0; i < ShownCount(); ++i) {
        const RowItemPtr &row = ShownRow(i);
        if (row->GetCellItemsSize() == columns && row->GetPrimaryKey() == primary_key)
            return int(i);
    }
    return -1;
}

std::vector<CMultiCheckBoxModel::ConstRowItemPtr> CMultiCheckBoxModel::GetAllSelectedItems()
{
    std::vector<ConstRowItemPtr> selected;
    for (const RowItemPtr &row : m_sourceRows) {
        if (row->GetCheckState())
            selected.push_back(row);
    }
    return selected;
}

void CMultiCheckBoxModel::BuildDataIndex(const std::vector<RowItemPtr> &rows)
{
    // A new index: the rows on show keep the old one until the next filter.
    auto index = std::make_shared<Index>();
    m_checkTexts.clear();
    m_checkOffsets.clear();
    m_search->ClearAllData();
    index->reserve(rows.size());

    IndexBuilder builder(*m_search, m_checkTexts, m_checkOffsets);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        FetchAhead(rows, i);
        const RowItemPtr &row = rows[i];
        if (!row)
            continue;
        builder.BeginRow(int(index->size()));
        for (const auto &cell : row->GetCellItems()) {
            if (cell && !cell->GetDisplayText().isEmpty())
                builder.AddText(cell->GetDisplayText());
        }
        index->push_back({row, builder.FirstCheck(), builder.Exact()});
    }
    m_checkOffsets.push_back(m_checkTexts.size());
    m_index = std::move(index);
}

bool CMultiCheckBoxModel::EntryMatches(std::size_t entry, const QByteArray &pattern, const QByteArray &plain) const
{
    const Index &index = *m_index;
    const std::size_t first = index[entry].firstCheck;
    const std::size_t last = entry + 1 < index.size() ? index[entry + 1].firstCheck : m_checkOffsets.size() - 1;
    if (first >= last)
        return false;
    const char *texts = m_checkTexts.data();
    if (!plain.isNull()) {
        // A pattern without wildcards inside matches by containment, and as the key has
        // no NUL, one search over the row's NUL-separated forms answers for all of them.
        const std::string_view forms(texts + m_checkOffsets[first], m_checkOffsets[last] - m_checkOffsets[first]);
        if (plain.size() == 1)
            return forms.find(plain.at(0)) != std::string_view::npos;
        return forms.find(std::string_view(plain.constData(), std::size_t(plain.size()))) != std::string_view::npos;
    }
    for (std::size_t k = first; k < last; ++k) {
        const std::size_t begin = m_checkOffsets[k];
        if (search::SafeFNMatch(pattern.constData(), unsigned(pattern.size()), texts + begin,
                                unsigned(m_checkOffsets[k + 1] - begin - 1)))
            return true;
    }
    return false;
}

void CMultiCheckBoxModel::FilterDataByKeyWord(const std::wstring &keyword)
{
    beginResetModel();
    m_keyword = keyword;
    m_shown.clear();
    m_shownIndex = m_index;
    const std::size_t entries = m_index->size();
    if (m_keyword.empty()) {
        m_shown.resize(entries);
        for (std::size_t i = 0; i < entries; ++i)
            m_shown[i] = unsigned(i);
    } else {
        const QString key = QString::fromStdWString(m_keyword).trimmed().toUpper();
        std::vector<int> ids;
        m_search->Search(key.toStdWString(), ids);
        if (!ids.empty()) {
            QString pattern = key;
            pattern.replace(QLatin1Char(' '), QLatin1Char('*'));
            const QByteArray full = (QLatin1Char('*') + pattern + QLatin1Char('*')).toUtf8();
            const QByteArray plain = IsPlainKey(key) ? full.mid(1, full.size() - 2) : QByteArray();
            m_shown.reserve(ids.size());
            const Index &index = *m_index;
            // For a key without wildcards an exact service has done the confirming
            // already, on the very texts that confirming would read.
            const bool confirmed = !plain.isNull() && m_search->AnswersExactly();
            for (int id : ids) {
                if (id < 0 || std::size_t(id) >= entries)
                    continue;
                if ((confirmed && index[std::size_t(id)].exact) || EntryMatches(std::size_t(id), full, plain))
                    m_shown.push_back(unsigned(id));
            }
        }
    }
    endResetModel();
    UpdateHeadCheckedStatus();
    EmitHeadChanged();
}

bool CMultiCheckBoxModel::SetCellItemSelectedState(const QString &primary_key, bool selected)
{
    if (m_checkableColumn < 0)
        return false;
    for (std::size_t i = 0; i < ShownCount(); ++i) {
        const RowItemPtr &row = ShownRow(i);
        if (row->GetPrimaryKey() != primary_key)
            continue;
        row->SetCheckState(selected);
        UpdateHeadCheckedStatus();
        EmitHeadChanged();
        EmitCheckCellChanged(int(i));
        return true;
    }
    return false;
}

void CMultiCheckBoxModel::SetCheckableColumn(int role, int column)
{
    m_checkableRole = role;
    m_checkableColumn = column;
}

int CMultiCheckBoxModel::GetCheckableColumn() const
{
    return m_checkableColumn;
}

void CMultiCheckBoxModel::SetHorizontalHeaderLabels(const QStringList &labels)
{
    m_headerLabels = labels;
}

void CMultiCheckBoxModel::SetTextAlignment(const std::map<int, int> &alignment)
{
    m_textAlignment = alignment;
}

void CMultiCheckBoxModel::SetTextAlignment(unsigned int column, int alignment)
{
    if (column < unsigned(m_headerLabels.size()))
        m_textAlignment[int(column)] = alignment;
}

void CMultiCheckBoxModel::ScaleChanged(float scale)
{
    if (!DpiTool::IsValidScale(scale))
        return;
    m_scale = scale;
    ReloadImageSrc();
}

void CMultiCheckBoxModel::UpdateFilterData()
{
    if (m_sourceRows.empty())
        m_keyword.clear();
    BuildDataIndex(m_sourceRows);
    FilterDataByKeyWord(m_keyword);
}

void CMultiCheckBoxModel::UpdateHeadCheckedStatus()
{
    // Reads one flag in each row object on show, scattered in memory: the objects are
    // fetched ahead, and the walk ends as soon as the answer can only be "partly".
    const std::size_t count = ShownCount();
    constexpr std::size_t ahead = 16;
    bool anyChecked = false, anyUnchecked = false;
    for (std::size_t i = 0; i < count && !(anyChecked && anyUnchecked); ++i) {
#if defined(__GNUC__)
        if (i + ahead < count)
            __builtin_prefetch(ShownRow(i + ahead).get());
#endif
        if (ShownRow(i)->GetCheckState())
            anyChecked = true;
        else
            anyUnchecked = true;
    }
    if (!anyChecked)
        m_headCheckState = Qt::Unchecked;
    else
        m_headCheckState = anyUnchecked ? Qt::PartiallyChecked : Qt::Checked;
}

void CMultiCheckBoxModel::UpdateHeaderViewSection()
{
    UpdateHeadCheckedStatus();
    EmitHeadChanged();
}

void CMultiCheckBoxModel::UpdateAllCellItemsCheckedStatus(bool checked)
{
    if (m_checkableColumn < 0 || ShownCount() == 0)
        return;
    for (std::size_t i = 0; i < ShownCount(); ++i) {
        const RowItemPtr &row = ShownRow(i);
        if (row->GetEnableChangeCheckState())
            row->SetCheckState(checked);
    }
    const QModelIndex topLeft = index(0, 0);
    const QModelIndex bottomRight = index(rowCount() - 1, columnCount() - 1);
    if (topLeft.isValid() && bottomRight.isValid())
        emit dataChanged(topLeft, bottomRight, {});
}

void CMultiCheckBoxModel::ReloadImageSrc()
{
    IStorageSkinHelper *skin = GetSkinHelper();
    const std::wstring group = L"common";
    m_normalImage = ImagePath::GetStretchPixmap(skin->GetImagePath(group, L"check_box_normal"), m_scale);
    m_checkedImage = ImagePath::GetStretchPixmap(skin->GetImagePath(group, L"check_box_checked"), m_scale);
    m_disableImage = ImagePath::GetStretchPixmap(skin->GetImagePath(group, L"check_box_disable"), m_scale);
    m_partiallyCheckedImage =
        ImagePath::GetStretchPixmap(skin->GetImagePath(group, L"check_box_partially_checked"), m_scale);
}

// Signals that name a section or cell only go out for ones that exist, so that a
// checkable column set beyond the labels cannot hand views an invalid index.
void CMultiCheckBoxModel::EmitHeadChanged()
{
    if (m_checkableColumn >= 0 && m_checkableColumn < m_headerLabels.size())
        emit headerDataChanged(Qt::Horizontal, m_checkableColumn, m_checkableColumn);
}

void CMultiCheckBoxModel::EmitCheckCellChanged(int row)
{
    const QModelIndex cell = index(row, m_checkableColumn);
    if (cell.isValid())
        emit dataChanged(cell, cell, {});
}

int CMultiCheckBoxModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ShownCount());
}

int CMultiCheckBoxModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_headerLabels.size();
}

QVariant CMultiCheckBoxModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() < 0 || std::size_t(index.row()) >= ShownCount() ||
        index.column() < 0 || index.column() >= m_headerLabels.size())
        return {};
    const RowItemPtr &row = ShownRow(std::size_t(index.row()));
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        if (auto cell = row->GetRowItem(unsigned(column)))
            return cell->GetDisplayText();
        return {};
    case Qt::TextAlignmentRole: {
        auto it = m_textAlignment.find(column);
        return it != m_textAlignment.end() ? it->second : int(Qt::AlignCenter);
    }
    case Qt::CheckStateRole:
        if (column == m_checkableColumn)
            return int(row->GetCheckState() ? Qt::Checked : Qt::Unchecked);
        return {};
    case Qt::UserRole:
        return row->GetCheckState() ? m_checkedImage : m_normalImage;
    default:
        break;
    }
    if (role == m_checkableRole)
        return m_checkableColumn;
    return {};
}

bool CMultiCheckBoxModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid() || m_checkableColumn < 0 || m_sourceRows.empty() ||
        index.row() < 0 || std::size_t(index.row()) >= ShownCount())
        return QAbstractTableModel::setData(index, value, role);
    const RowItemPtr &row = ShownRow(std::size_t(index.row()));
    if (!row->GetEnableChangeCheckState())
        return false;
    const auto state = static_cast<Qt::CheckState>(value.toInt());
    row->SetCheckState(state == Qt::Checked);
    UpdateHeaderViewSection();
    EmitCheckCellChanged(index.row());
    return true;
}

QVariant CMultiCheckBoxModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section < 0 || section >= m_headerLabels.size())
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (role) {
    case Qt::DisplayRole:
        return m_headerLabels.at(section);
    case Qt::TextAlignmentRole: {
        auto it = m_textAlignment.find(section);
        return it != m_textAlignment.end() ? it->second : int(Qt::AlignCenter);
    }
    case Qt::CheckStateRole:
        if (section != m_checkableColumn)
            return {};
        if (m_headCheckState == Qt::Checked)
            return m_checkedImage;
        return m_headCheckState == Qt::PartiallyChecked ? m_partiallyCheckedImage : m_normalImage;
    default:
        break;
    }
    if (role == m_checkableRole)
        return m_checkableColumn;
    return QAbstractTableModel::headerData(section, orientation, role);
}

bool CMultiCheckBoxModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant &value, int role)
{
    if (role == Qt::CheckStateRole && section >= 0 && section == m_checkableColumn) {
        // The value is ignored: a click on the head check always moves it on from its
        // current state, and only a full check is cleared by it.
        UpdateAllCellItemsCheckedStatus(m_headCheckState != Qt::Checked);
        UpdateHeadCheckedStatus();
        EmitHeadChanged();
        emit CheckableColumnStateChanged(static_cast<Qt::CheckState>(m_headCheckState));
    }
    return QAbstractTableModel::setHeaderData(section, orientation, value, role);
}

Qt::ItemFlags CMultiCheckBoxModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags result = QAbstractTableModel::flags(index);
    // Read from the client's row order, not the rows on show: under a keyword the flag
    // is that of the source row at the same number. Kept so on purpose, as clients
    // depend on it; setData still refuses locked rows whatever the flag says.
    if (index.isValid() && index.row() >= 0 && std::size_t(index.row()) < m_sourceRows.size() &&
        !m_sourceRows[std::size_t(index.row())]->GetEnableChangeCheckState())
        result &= ~Qt::ItemIsEnabled;
    return result;
}

void CMultiCheckBoxModel::ChangedSkin(Skin::SKIN_TYPE)
{
    ReloadImageSrc();
}
