#include "check_table_rows.h"

#include "qtcomm/image_path.h"
#include "qtcomm/skin_helper.h"
#include "textengine/py_name_mgr.h"

#include <QAbstractItemModelTester>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

namespace {

using Row = std::shared_ptr<CMultiCheckboxTableRowItem>;

// Code, English name, Chinese name; the key names the row in the expectations.
std::vector<Row> Stocks()
{
    return {MakeRow("cmb", {"600036", "China Merchants Securities", "招商证券"}),
            MakeRow("pa", {"601318", "Ping An Insurance", "中国平安"}),
            MakeRow("qx", {"000007", "Quanxin Holdings", "全新好"}),
            MakeRow("catl", {"300750", "Contemporary Amperex", "宁德时代"}),
            MakeRow("yh", {"601166", "Industrial Bank", "银行"}),
            MakeRow("cj", {"600900", "Yangtze Power", "长江电力"}),
            MakeRow("hl", {"002007", "Hualan Bio", "华兰生物"}),
            MakeRow("blank", {"", "", ""})}; // nothing to match: only shown without a keyword
}

QImage Picture(const wchar_t *key, float scale = 1.0f)
{
    return ImagePath::GetStretchPixmap(GetSkinHelper()->GetImagePath(L"common", key), scale).toImage();
}

// The head check as the header sees it: which of the three pictures it is handed.
int HeadState(QAbstractItemModel *model)
{
    const QImage shown = model->headerData(0, Qt::Horizontal, Qt::CheckStateRole).value<QPixmap>().toImage();
    if (shown == Picture(L"check_box_checked"))
        return Qt::Checked;
    if (shown == Picture(L"check_box_partially_checked"))
        return Qt::PartiallyChecked;
    return shown == Picture(L"check_box_normal") ? int(Qt::Unchecked) : -1;
}

struct Table {
    explicit Table(std::vector<Row> rows = Stocks())
        : rows(rows)
    {
        model.SetHorizontalHeaderLabels({"Code", "Name", "Chinese"});
        model.SetCheckableColumn(Qt::UserRole + 100, 0);
        model.SetSourceData(rows);
    }
    void HeadClick(int section = 0) { m->setHeaderData(section, Qt::Horizontal, QVariant(), Qt::CheckStateRole); }
    bool Set(int row, int column, int state) { return m->setData(m->index(row, column), state, Qt::CheckStateRole); }
    CMultiCheckBoxModel model{1.0f, nullptr};
    QAbstractItemModel *m = &model;
    std::vector<Row> rows;
};

} // namespace

class TstMultiCheckBoxModel : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        qRegisterMetaType<Qt::CheckState>();
        // The head check is read back by its picture, so the three must differ.
        QVERIFY(Picture(L"check_box_normal") != Picture(L"check_box_checked"));
        QVERIFY(Picture(L"check_box_partially_checked") != Picture(L"check_box_checked"));
    }

    void rowCopiesAreDeep()
    {
        Row source = MakeRow(QString::fromUtf8("平安"), {"601318", "Ping An"}, true, false);
        CMultiCheckboxTableRowItem copy(*source);
        QCOMPARE(copy.GetPrimaryKey(), source->GetPrimaryKey());
        QVERIFY(copy.GetCheckState() && !copy.GetEnableChangeCheckState());
        QVERIFY(copy.GetRowItem(1).get() != source->GetRowItem(1).get());
        QCOMPARE(copy.GetRowItem(1)->GetDisplayText(), QString("Ping An"));
        QVERIFY(!copy.GetRowItem(2));

        CMultiCheckboxTableRowItem assigned("other");
        assigned = *source;
        QVERIFY(assigned.GetRowItem(0).get() != source->GetRowItem(0).get());
        // Self-assignment keeps the very cells; a careless deep copy would drop them first.
        const CMultiCheckBoxCellItem *before = assigned.GetRowItem(0).get();
        CMultiCheckboxTableRowItem &alias = assigned;
        assigned = alias;
        QCOMPARE(assigned.GetRowItem(0).get(), before);
        QCOMPARE(assigned.GetRowItem(0)->GetDisplayText(), QString("601318"));
        // SetCellItems shares.
        CMultiCheckboxTableRowItem sharing("s");
        sharing.SetCellItems(source->GetCellItems());
        QCOMPARE(sharing.GetRowItem(0).get(), source->GetRowItem(0).get());
    }

    void roles()
    {
        Table t({MakeRow("a", {"600036", "Bank", "银行"}, true), MakeRow("b", {"000001"})});
        QAbstractItemModel *m = t.m;
        QCOMPARE(m->data(m->index(0, 2)).toString(), QString::fromUtf8("银行"));
        QVERIFY(!m->data(m->index(1, 2)).isValid()); // no such cell
        QCOMPARE(m->data(m->index(0, 1), Qt::TextAlignmentRole).toInt(), int(Qt::AlignCenter));
        t.model.SetTextAlignment(1, Qt::AlignLeft | Qt::AlignVCenter);
        t.model.SetTextAlignment(7, Qt::AlignRight); // no such column: ignored
        QCOMPARE(m->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), int(Qt::AlignLeft | Qt::AlignVCenter));
        QCOMPARE(m->data(m->index(0, 0), Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QCOMPARE(m->data(m->index(1, 0), Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        QVERIFY(!m->data(m->index(0, 1), Qt::CheckStateRole).isValid());
        QCOMPARE(m->data(m->index(0, 1), Qt::UserRole).value<QPixmap>().toImage(), Picture(L"check_box_checked"));
        QCOMPARE(m->data(m->index(1, 1), Qt::UserRole).value<QPixmap>().toImage(), Picture(L"check_box_normal"));
        QCOMPARE(m->data(m->index(1, 2), Qt::UserRole + 100).toInt(), 0);
        QCOMPARE(m->headerData(2, Qt::Horizontal, Qt::UserRole + 100).toInt(), 0);
        QVERIFY(!m->headerData(1, Qt::Horizontal, Qt::CheckStateRole).isValid());
        QCOMPARE(HeadState(m), int(Qt::PartiallyChecked));
        // A checkable role on a fixed role is never answered as the column.
        t.model.SetCheckableColumn(Qt::CheckStateRole, 0);
        QCOMPARE(m->data(m->index(1, 0), Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    }

    void filter_data()
    {
        QTest::addColumn<QString>("keyword");
        QTest::addColumn<QStringList>("expected");
        const QStringList texts = {"cmb", "pa", "qx", "catl", "yh", "cj", "hl"};
        QTest::newRow("empty shows all") << "" << texts + QStringList{"blank"};
        QTest::newRow("blanks: every row with a text") << "   " << texts;
        QTest::newRow("initials, any case") << "zgpa" << QStringList{"pa"};
        QTest::newRow("full spelling") << "zhongguo" << QStringList{"pa"};
        QTest::newRow("银行 as YH") << "YH" << QStringList{"yh"};
        QTest::newRow("银行 as YX") << "YX" << QStringList{"yh"};
        QTest::newRow("长江 as CJ") << "CJ" << QStringList{"cj"};
        QTest::newRow("长江 as ZJ") << "ZJ" << QStringList{"cj"};
        QTest::newRow("Chinese text") << QString::fromUtf8("银行") << QStringList{"yh"};
        QTest::newRow("digits anywhere") << "007" << QStringList{"qx", "catl", "hl"};
        QTest::newRow("two words in order") << "ping ins" << QStringList{"pa"};
        QTest::newRow("two words reversed") << "insurance ping" << QStringList{};
        QTest::newRow("blanks around") << "  zgpa " << QStringList{"pa"};
        QTest::newRow("wildcard") << "6?0" << QStringList{"cmb", "cj"};
        QTest::newRow("nothing") << "XYZQ" << QStringList{};
    }
    void filter()
    {
        QFETCH(QString, keyword);
        QFETCH(QStringList, expected);
        Table t;
        t.model.FilterDataByKeyWord(keyword.toStdWString());
        QCOMPARE(Shown(t.model), expected);
        QCOMPARE(t.m->rowCount(), expected.size());
    }

    // The engine's answer for a plain key is taken without confirming it, so it must be
    // what confirming every row would accept, on texts that trip the conversions too.
    void answerIsWhatCheckingEveryRowAccepts()
    {
        const QString odd[] = {QString::fromUtf8("Straße ﬁx"), QString::fromUtf8("ＡＢｃ全角"),
                               QString::fromUtf8("  padded\tTab  "), QString::fromUtf8("Émile 银行"),
                               QString(QChar(0xD83D)) + "lone", QString::fromUtf8("x😀长江y")};
        std::vector<Row> rows = Stocks();
        for (const QString &text : odd)
            rows.push_back(MakeRow(text, {text, "1"}));
        Table t(rows);
        // Each row's compare forms, worked out once: its texts upper-cased and the
        // upper-cased pieces of both spellings of each.
        PyNameMgr *py = PyNameMgr::GetInstance();
        std::vector<QStringList> forms(rows.size());
        for (std::size_t r = 0; r < rows.size(); ++r) {
            for (const auto &cell : rows[r]->GetCellItems()) {
                const QString &text = cell->GetDisplayText();
                if (text.isEmpty())
                    continue;
                forms[r] << text.toUpper();
                const std::wstring wide = text.toStdWString();
                for (const std::wstring &spelled : {py->GetFullSpell(wide.c_str(), 0), py->GetInitialSpell(wide.c_str(), 0)})
                    forms[r] += QString::fromStdWString(spelled).toUpper().split(' ', Qt::SkipEmptyParts);
            }
        }
        QStringList keys;
        for (const QStringList &rowForms : forms)
            for (const QString &form : rowForms) {
                const QVector<uint> chars = form.toUcs4(); // keys of whole characters
                for (int at = 0; at < chars.size(); ++at)
                    for (int length = 1; length <= 4 && at + length <= chars.size(); ++length)
                        keys << QString::fromUcs4(chars.constData() + at, length).toLower();
            }
        keys.removeDuplicates();
        // Not typed keys: wildcards, and the stand-in for a broken surrogate pair.
        const QRegularExpression untyped("[ *?\\\\[\\x{FFFD}]");
        for (const QString &keyword : keys) {
            const QString key = keyword.trimmed().toUpper();
            if (key.isEmpty() || key.contains(untyped))
                continue;
            QStringList expected;
            for (std::size_t r = 0; r < rows.size(); ++r)
                if (!forms[r].filter(key).isEmpty())
                    expected << rows[r]->GetPrimaryKey();
            t.model.FilterDataByKeyWord(keyword.toStdWString());
            QVERIFY2(Shown(t.model) == expected, qPrintable(keyword + ": " + Shown(t.model).join(',') + " / " + expected.join(',')));
        }
    }

    void headCheckActsOnFilteredRowsOnly()
    {
        Table t({MakeRow("a", {"601318", "Ping An"}, true), MakeRow("b", {"600036", "Merchants"}),
                 MakeRow("c", {"000002", "Ping Fu"})});
        QSignalSpy head(&t.model, &CMultiCheckBoxModel::CheckableColumnStateChanged);
        t.model.FilterDataByKeyWord(L"Ping An");
        QCOMPARE(HeadState(t.m), int(Qt::Checked));
        t.HeadClick();
        QVERIFY(!t.rows[0]->GetCheckState() && !t.rows[1]->GetCheckState());
        QCOMPARE(head.count(), 1);
        QCOMPARE(head.at(0).at(0).value<Qt::CheckState>(), Qt::Unchecked);

        t.model.FilterDataByKeyWord(L"ping");
        t.HeadClick();
        QVERIFY(t.rows[0]->GetCheckState() && t.rows[2]->GetCheckState());
        QVERIFY(!t.rows[1]->GetCheckState());
        t.model.FilterDataByKeyWord(L"");
        QCOMPARE(HeadState(t.m), int(Qt::PartiallyChecked));
        t.HeadClick(1); // only the check column's header is the head check
        QVERIFY(!t.rows[1]->GetCheckState());
        QCOMPARE(head.count(), 2);

        // With nothing on show the head check is clear and a click changes nothing; the
        // selection still counts every row.
        t.model.FilterDataByKeyWord(L"QQQQ");
        QCOMPARE(HeadState(t.m), int(Qt::Unchecked));
        QSignalSpy changed(t.m, &QAbstractItemModel::dataChanged);
        t.HeadClick();
        QCOMPARE(changed.count(), 0);
        const auto selected = t.model.GetAllSelectedItems();
        QCOMPARE(int(selected.size()), 2);
        QCOMPARE(selected[1]->GetPrimaryKey(), QString("c"));
    }

    void lockedRowsStayAndHoldHeadPartial()
    {
        Table t({MakeRow("locked", {"1"}, false, false), MakeRow("free", {"2"})});
        QSignalSpy head(&t.model, &CMultiCheckBoxModel::CheckableColumnStateChanged);
        for (int click = 0; click < 2; ++click) {
            t.HeadClick();
            QVERIFY(t.rows[1]->GetCheckState() && !t.rows[0]->GetCheckState());
            QCOMPARE(HeadState(t.m), int(Qt::PartiallyChecked));
        }
        QCOMPARE(head.at(1).at(0).value<Qt::CheckState>(), Qt::PartiallyChecked);
        QVERIFY(!t.Set(0, 0, Qt::Checked));
        QVERIFY(!t.rows[0]->GetCheckState());
        QVERIFY(t.model.SetCellItemSelectedState("locked", true)); // the client may
        QCOMPARE(HeadState(t.m), int(Qt::Checked));

        // The enabled flag is read from the client's row order, under a keyword too.
        QVERIFY(!(t.m->flags(t.m->index(0, 0)) & Qt::ItemIsEnabled));
        QVERIFY(t.m->flags(t.m->index(1, 0)) & Qt::ItemIsEnabled);
        t.model.FilterDataByKeyWord(L"2");
        QCOMPARE(Shown(t.model), QStringList({"free"}));
        QVERIFY(!(t.m->flags(t.m->index(0, 0)) & Qt::ItemIsEnabled));
    }

    void setDataNamesTheCheckColumn()
    {
        Table t;
        QSignalSpy changed(t.m, &QAbstractItemModel::dataChanged);
        QVERIFY(!t.m->setData(t.m->index(2, 0), Qt::Checked, Qt::EditRole));
        QVERIFY(t.Set(2, 2, Qt::Checked));
        QVERIFY(t.rows[2]->GetCheckState());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toModelIndex(), t.m->index(2, 0));
        QCOMPARE(changed.at(0).at(1).toModelIndex(), t.m->index(2, 0));
        QVERIFY(t.Set(2, 0, Qt::Unchecked));
        QVERIFY(!t.rows[2]->GetCheckState());
        // Under a keyword the row numbers are those on show.
        t.model.FilterDataByKeyWord(L"YH");
        QVERIFY(t.Set(0, 0, Qt::Checked));
        QVERIFY(t.rows[4]->GetCheckState() && !t.rows[0]->GetCheckState());
        QVERIFY(!t.model.SetCellItemSelectedState("cmb", true)); // hidden by the keyword
        QVERIFY(!t.rows[0]->GetCheckState());

        Table noColumn({MakeRow("x", {"1"})});
        noColumn.model.SetCheckableColumn(Qt::UserRole + 100, -1);
        QVERIFY(!noColumn.Set(0, 0, Qt::Checked));
        QVERIFY(!noColumn.model.SetCellItemSelectedState("x", true));
    }

    void dataChangesKeepOrClearTheKeyword()
    {
        Table t;
        t.model.FilterDataByKeyWord(L"007");
        t.model.AddRowItem(MakeRow("new007", {"600007"}));
        t.model.AddRowItem(MakeRow("other", {"600100"}));
        QCOMPARE(Shown(t.model), QStringList({"qx", "catl", "hl", "new007"}));
        QVERIFY(!t.model.DeleteRowItem("missing"));
        QVERIFY(t.model.DeleteRowItem("catl"));
        t.model.SetSourceData({MakeRow("x", {"300007"}), MakeRow("y", {"300008"})});
        QCOMPARE(Shown(t.model), QStringList({"x"}));
        // Deleting the last row clears the keyword: the next row is not filtered by it.
        QVERIFY(t.model.DeleteRowItem("x") && t.model.DeleteRowItem("y"));
        t.model.AddRowItem(MakeRow("z", {"600036"}));
        QCOMPARE(Shown(t.model), QStringList({"z"}));
    }

    void resetGivesFreshCopies()
    {
        Table t;
        Row first = MakeRow("r1", {"600036"}, true), second = MakeRow("r2", {"600037"}, false, false);
        t.model.SetResetData({first, second});
        QCOMPARE(Shown(t.model).size(), 8); // nothing on show changes yet
        t.model.ResetSourceData();
        QCOMPARE(Shown(t.model), QStringList({"r1", "r2"}));
        QVERIFY(t.model.GetRowItem(0).get() != first.get());
        QVERIFY(t.model.GetRowItem(0)->GetRowItem(0).get() != first->GetRowItem(0).get());
        QVERIFY(!t.model.GetRowItem(1)->GetEnableChangeCheckState());
        QVERIFY(t.Set(0, 0, Qt::Unchecked));
        QVERIFY(first->GetCheckState()); // the client's rows stay as given
        t.model.ResetSourceData();
        QVERIFY(t.model.GetRowItem(0)->GetCheckState());
    }

    void picturesFollowScaleAndSkin()
    {
        Table t({MakeRow("a", {"1"}, true)});
        const QSize at1 = t.m->data(t.m->index(0, 0), Qt::UserRole).value<QPixmap>().size();
        QVERIFY(!at1.isEmpty());
        t.model.ScaleChanged(2.0f);
        QCOMPARE(t.m->data(t.m->index(0, 0), Qt::UserRole).value<QPixmap>().size(), at1 * 2);
        QCOMPARE(t.m->headerData(0, Qt::Horizontal, Qt::CheckStateRole).value<QPixmap>().size(), at1 * 2);
        t.model.ScaleChanged(1.0f);
        QVERIFY(GetSkinHelper()->SwitchSkin(Skin::SKIN_DARK));
        const QImage shown = t.m->data(t.m->index(0, 0), Qt::UserRole).value<QPixmap>().toImage();
        const QImage dark = Picture(L"check_box_checked");
        QVERIFY(GetSkinHelper()->SwitchSkin(Skin::SKIN_LIGHT));
        QCOMPARE(shown, dark);
        QVERIFY(dark != Picture(L"check_box_checked"));
    }

    void testerThroughASession()
    {
        CMultiCheckBoxModel model(1.0f, nullptr);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        model.SetHorizontalHeaderLabels({"Code", "Name", "Chinese"});
        model.SetCheckableColumn(Qt::UserRole + 100, 0);
        model.SetTextAlignment(1, Qt::AlignLeft | Qt::AlignVCenter);
        std::vector<Row> rows = Stocks();
        model.SetSourceData(rows);
        model.SetResetData({rows.begin(), rows.end()});
        QAbstractItemModel *m = &model;
        for (const wchar_t *key : {L"Z", L"ZG", L"ZGP", L"ZGPA", L"", L"007", L"QQQ", L" "}) {
            model.FilterDataByKeyWord(key);
            m->setHeaderData(0, Qt::Horizontal, QVariant(), Qt::CheckStateRole);
            if (m->rowCount() > 0)
                m->setData(m->index(m->rowCount() - 1, 1), Qt::Checked, Qt::CheckStateRole);
        }
        model.FilterDataByKeyWord(L"6");
        model.AddRowItem(MakeRow("n", {"600999", "New"}));
        QVERIFY(model.DeleteRowItem("cmb"));
        model.SetCellItemSelectedState("n", true);
        model.ResetSourceData();
        model.SetSourceData({});
        m->setHeaderData(0, Qt::Horizontal, QVariant(), Qt::CheckStateRole);
        QCOMPARE(HeadState(m), int(Qt::Unchecked));
    }
};

QTEST_MAIN(TstMultiCheckBoxModel)
#include "tst_multi_check_box_model.moc"
