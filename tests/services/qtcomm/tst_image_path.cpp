#include "qtcomm/image_path.h"
#include "qtcomm/skin_helper.h"

#include <QColor>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <limits>

class TestImagePath : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void pixmapPathFollowsTheNamingRule_data();
    void pixmapPathFollowsTheNamingRule();
    void stretchFactor_data();
    void stretchFactor();
    void svgIsRenderedAtTheExactScale_data();
    void svgIsRenderedAtTheExactScale();
    void svgIsDrawnNotJustSized();
    void rasterComesFromTheRatioSet_data();
    void rasterComesFromTheRatioSet();
    void badInput();

private:
    QString File(QString const &name) const { return m_dir.filePath(name); }
    void WriteImage(QString const &name, int size, QColor const &color);

    QTemporaryDir m_dir;
};

void TestImagePath::WriteImage(QString const &name, int size, QColor const &color)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(color);
    QVERIFY(image.save(File(name), "PNG"));
}

void TestImagePath::initTestCase()
{
    QVERIFY(m_dir.isValid());
    WriteImage("both.png", 10, Qt::red);
    WriteImage("both@2x.png", 20, Qt::blue);
    WriteImage("base_only.png", 10, Qt::red);
    WriteImage("double_only@2x.png", 20, Qt::blue);
    WriteImage("noext", 10, Qt::red);
    WriteImage("noext@2x", 20, Qt::blue);
}

void TestImagePath::pixmapPathFollowsTheNamingRule_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("ratio");
    QTest::addColumn<QString>("expected");
    QTest::newRow("ratio 1") << "both.png" << 1 << "both.png";
    QTest::newRow("ratio 2 has its file") << "both.png" << 2 << "both@2x.png";
    QTest::newRow("ratio 3 falls back to the base") << "both.png" << 3 << "both.png";
    QTest::newRow("ratio 0 counts as 1") << "both.png" << 0 << "both.png";
    QTest::newRow("base only") << "base_only.png" << 2 << "base_only.png";
    QTest::newRow("ratio file without base") << "double_only.png" << 2 << "double_only@2x.png";
    QTest::newRow("neither") << "double_only.png" << 1 << "";
    QTest::newRow("missing") << "missing.png" << 2 << "";
    QTest::newRow("no suffix") << "noext" << 2 << "noext@2x";
}

void TestImagePath::pixmapPathFollowsTheNamingRule()
{
    QFETCH(QString, path);
    QFETCH(int, ratio);
    QFETCH(QString, expected);
    std::string const result = ImagePath::GetPixmapPath(File(path).toStdString(), ratio);
    QCOMPARE(QString::fromStdString(result), expected.isEmpty() ? QString() : File(expected));
}

void TestImagePath::stretchFactor_data()
{
    QTest::addColumn<float>("scale");
    QTest::addColumn<float>("factor");
    QTest::newRow("1.0") << 1.0f << 1.0f;
    QTest::newRow("1.25 stays on ratio 1") << 1.25f << 1.25f;
    QTest::newRow("1.5 takes ratio 2") << 1.5f << 0.75f;
    QTest::newRow("1.75") << 1.75f << 0.875f;
    QTest::newRow("2.0") << 2.0f << 1.0f;
    QTest::newRow("2.5 takes ratio 3") << 2.5f << 2.5f / 3.0f;
    QTest::newRow("0.5, ratio never below 1") << 0.5f << 0.5f;
    QTest::newRow("0.3") << 0.3f << 0.3f;
}

void TestImagePath::stretchFactor()
{
    QFETCH(float, scale);
    QFETCH(float, factor);
    QCOMPARE(ImagePath::GetStretchFactor(scale), factor);
}

void TestImagePath::svgIsRenderedAtTheExactScale_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<float>("scale");
    QTest::addColumn<QSize>("size");
    QString const box = ":/images/light/check_box_checked.svg"; // 16 by 16
    QString const arrow = ":/images/dark/arrow_expand.svg";     // 12 by 12
    QTest::newRow("box 1.0") << box << 1.0f << QSize(16, 16);
    QTest::newRow("box 1.5") << box << 1.5f << QSize(24, 24);
    QTest::newRow("box 2.0") << box << 2.0f << QSize(32, 32);
    QTest::newRow("box 1.1 truncates") << box << 1.1f << QSize(17, 17);
    QTest::newRow("arrow 1.25") << arrow << 1.25f << QSize(15, 15);
    QTest::newRow("tiny scale keeps a pixel") << arrow << 0.01f << QSize(1, 1);
}

void TestImagePath::svgIsRenderedAtTheExactScale()
{
    QFETCH(QString, path);
    QFETCH(float, scale);
    QFETCH(QSize, size);
    QCOMPARE(QString::fromStdString(ImagePath::GetPixmapPath(path.toStdString(), 2)), path);
    QPixmap const pixmap = ImagePath::GetStretchPixmap(path.toStdWString(), scale);
    QCOMPARE(pixmap.size(), size);
    QCOMPARE(pixmap.devicePixelRatio(), 1.0);
}

void TestImagePath::svgIsDrawnNotJustSized()
{
    // The checked box is filled with the skin's accent; its corner stays transparent.
    QString const accent = QString::fromStdWString(GetSkinHelper()->GetColorText(L"gallery", L"accent"));
    for (float scale : {1.0f, 1.5f, 2.0f}) {
        QImage const image = ImagePath::GetStretchPixmap(L":/images/light/check_box_checked.svg", scale).toImage();
        QCOMPARE(QColor(image.pixel(int(4 * scale), int(4 * scale))), QColor(accent));
        QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    }
}

void TestImagePath::rasterComesFromTheRatioSet_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<float>("scale");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QColor>("color");
    QTest::newRow("1.0 from the base") << "both.png" << 1.0f << QSize(10, 10) << QColor(Qt::red);
    QTest::newRow("1.25 stretched base") << "both.png" << 1.25f << QSize(12, 12) << QColor(Qt::red);
    QTest::newRow("1.5 from @2x, shrunk") << "both.png" << 1.5f << QSize(15, 15) << QColor(Qt::blue);
    QTest::newRow("2.0 from @2x") << "both.png" << 2.0f << QSize(20, 20) << QColor(Qt::blue);
    QTest::newRow("2.0 without @2x") << "base_only.png" << 2.0f << QSize(20, 20) << QColor(Qt::red);
    QTest::newRow("1.5 without @2x") << "base_only.png" << 1.5f << QSize(15, 15) << QColor(Qt::red);
}

void TestImagePath::rasterComesFromTheRatioSet()
{
    QFETCH(QString, path);
    QFETCH(float, scale);
    QFETCH(QSize, size);
    QFETCH(QColor, color);
    QPixmap const pixmap = ImagePath::GetStretchPixmap(File(path).toStdWString(), scale);
    QCOMPARE(pixmap.size(), size);
    QCOMPARE(QColor(pixmap.toImage().pixel(size.width() / 2, size.height() / 2)), color);
}

void TestImagePath::badInput()
{
    QVERIFY(ImagePath::GetStretchPixmap(L"", 1.0f).isNull());
    QVERIFY(ImagePath::GetStretchPixmap(File("missing.png").toStdWString(), 1.0f).isNull());
    QVERIFY(ImagePath::GetStretchPixmap(L":/images/light/missing.svg", 1.5f).isNull());
    QVERIFY(ImagePath::GetStretchPixmap(File("double_only.png").toStdWString(), 1.0f).isNull());
    QVERIFY(ImagePath::GetPixmapPath(std::string(), 2).empty());
    // A scale that is no positive number counts as 1.0.
    for (float scale : {0.0f, -2.0f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
        QCOMPARE(ImagePath::GetStretchPixmap(L":/images/light/refresh.svg", scale).size(), QSize(16, 16));
}

QTEST_MAIN(TestImagePath)
#include "tst_image_path.moc"
