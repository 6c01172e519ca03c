#include "textengine/py_name_mgr.h"

#include <QSet>
#include <QStringList>
#include <QTest>

namespace {

QStringList Forms(const std::wstring &s)
{
    return QString::fromStdWString(s).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList Full(const QString &text, unsigned int cap = 0)
{
    return Forms(PyNameMgr::GetInstance()->GetFullSpell(text.toStdWString().c_str(), cap));
}

QStringList Initials(const QString &text, unsigned int cap = 0)
{
    return Forms(PyNameMgr::GetInstance()->GetInitialSpell(text.toStdWString().c_str(), cap));
}

} // namespace

class TestPyNameMgr : public QObject
{
    Q_OBJECT

private slots:
    void polyphonicNames_data();
    void polyphonicNames();
    void passThrough_data();
    void passThrough();
    void outputIsWellFormed_data();
    void outputIsWellFormed();
    void capKeepsClosestCombinations();
    void capLimits();
};

void TestPyNameMgr::polyphonicNames_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("full");
    QTest::addColumn<QStringList>("initials");

    QTest::newRow("bank") << QStringLiteral("银行") << QStringList{"YINHANG", "YINXING"}
                          << QStringList{"YH", "YX"};
    QTest::newRow("bank traditional") << QStringLiteral("銀行") << QStringList{"YINHANG", "YINXING"}
                                      << QStringList{"YH", "YX"};
    QTest::newRow("Yangtze") << QStringLiteral("长江") << QStringList{"CHANGJIANG", "ZHANGJIANG"}
                             << QStringList{"CJ", "ZJ"};
    QTest::newRow("Yangtze traditional") << QStringLiteral("長江")
                                         << QStringList{"CHANGJIANG", "ZHANGJIANG"}
                                         << QStringList{"CJ", "ZJ"};
    QTest::newRow("Chongqing") << QStringLiteral("重庆") << QStringList{"CHONGQING", "ZHONGQING"}
                               << QStringList{"CQ", "ZQ"};
    QTest::newRow("Chongqing traditional") << QStringLiteral("重慶")
                                           << QStringList{"CHONGQING", "ZHONGQING"}
                                           << QStringList{"CQ", "ZQ"};
    QTest::newRow("green as typed") << QStringLiteral("绿") << QStringList{"LV"} << QStringList{"L"};
    QTest::newRow("woman") << QStringLiteral("女") << QStringList{"NV"} << QStringList{"N"};
}

void TestPyNameMgr::polyphonicNames()
{
    QFETCH(QString, text);
    QFETCH(QStringList, full);
    QFETCH(QStringList, initials);
    const QStringList gotFull = Full(text);
    const QStringList gotInitials = Initials(text);
    for (const QString &f : full)
        QVERIFY2(gotFull.contains(f), qPrintable(f + " not in " + gotFull.join('|')));
    for (const QString &i : initials)
        QVERIFY2(gotInitials.contains(i), qPrintable(i + " not in " + gotInitials.join('|')));
}

void TestPyNameMgr::passThrough_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("full");
    QTest::addColumn<QString>("initials");

    // 中国平安 reads one way only (中 has two tones of one syllable): exactly one form.
    QTest::newRow("unambiguous name") << QStringLiteral("中国平安") << "ZHONGGUOPINGAN" << "ZGPA";
    QTest::newRow("code") << "600036" << "600036" << "600036";
    QTest::newRow("latin lower case") << "Apple Inc." << "APPLEINC" << "APPLEINC";
    QTest::newRow("mixed") << QStringLiteral("TCL科技") << "TCLKEJI" << "TCLKJ";
    QTest::newRow("digits inside") << QStringLiteral("上证50") << "SHANGZHENG50" << "SZ50";
    QTest::newRow("full width") << QStringLiteral("ＡｂＣ１２") << "ABC12" << "ABC12";
    QTest::newRow("punctuation dropped") << QStringLiteral("*ST 国华-A") << "STGUOHUAA" << "STGHA";
    QTest::newRow("nothing to spell") << QStringLiteral("，。 -()") << "" << "";
    QTest::newRow("empty") << "" << "" << "";
}

void TestPyNameMgr::passThrough()
{
    QFETCH(QString, text);
    QFETCH(QString, full);
    QFETCH(QString, initials);
    QCOMPARE(Full(text).join(' '), full);
    QCOMPARE(Initials(text).join(' '), initials);
}

void TestPyNameMgr::outputIsWellFormed_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("bank") << QStringLiteral("招商银行");
    QTest::newRow("many ambiguous") << QStringLiteral("重长行乐都会");
    QTest::newRow("with latin") << QStringLiteral("长江电力 A股 600900");
    QTest::newRow("surrogate pair") << QString::fromUcs4(U"\U00020000\U00020001长");
}

void TestPyNameMgr::outputIsWellFormed()
{
    QFETCH(QString, text);
    for (bool initials : {false, true}) {
        const std::wstring raw = initials
            ? PyNameMgr::GetInstance()->GetInitialSpell(text.toStdWString().c_str(), 0)
            : PyNameMgr::GetInstance()->GetFullSpell(text.toStdWString().c_str(), 0);
        const QString s = QString::fromStdWString(raw);
        QVERIFY(!s.isEmpty());
        QVERIFY(!s.startsWith(' ') && !s.endsWith(' ') && !s.contains("  "));
        for (QChar c : s)
            QVERIFY2(c == ' ' || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'), qPrintable(s));
        const QStringList forms = Forms(raw);
        QCOMPARE(QSet<QString>(forms.begin(), forms.end()).size(), forms.size());
    }
}

void TestPyNameMgr::capKeepsClosestCombinations()
{
    // Each 长 reads ZHANG (most common) or CHANG. Four forms: all common, then each
    // single deviation, never two deviations before all single ones.
    const QStringList forms = Full(QStringLiteral("长长长"), 4);
    QCOMPARE(forms.size(), 4);
    QCOMPARE(forms.first(), QStringLiteral("ZHANGZHANGZHANG"));
    const QStringList rest = forms.mid(1);
    QCOMPARE(QSet<QString>(rest.begin(), rest.end()),
             (QSet<QString>{"CHANGZHANGZHANG", "ZHANGCHANGZHANG", "ZHANGZHANGCHANG"}));

    QCOMPARE(Full(QStringLiteral("长长长"), 100).size(), 8); // all of them, each once
    QCOMPARE(Initials(QStringLiteral("长长长"), 100).size(), 8);
}

void TestPyNameMgr::capLimits()
{
    const QString many = QString(12, QChar(0x884C)); // 行 twelve times: 3^12 spellings
    QCOMPARE(Full(many).size(), int(PyNameMgr::kDefaultMaxForms));
    QCOMPARE(Full(many, 5).size(), 5);
    QCOMPARE(Full(many, 1).size(), 1);
    QCOMPARE(Full(many, 1000000).size(), int(PyNameMgr::kMaxForms));
    QCOMPARE(Initials(many, 1000000).size(), int(PyNameMgr::kMaxForms));

    const QStringList forms = Full(many, 1000000);
    QCOMPARE(QSet<QString>(forms.begin(), forms.end()).size(), forms.size());

    QVERIFY(PyNameMgr::GetInstance()->GetFullSpell(nullptr, 0).empty());
    QVERIFY(PyNameMgr::GetInstance()->GetInitialSpell(nullptr, 0).empty());
    QCOMPARE(PyNameMgr::GetInstance(), PyNameMgr::GetInstance());
}

QTEST_GUILESS_MAIN(TestPyNameMgr)
#include "tst_py_name_mgr.moc"
