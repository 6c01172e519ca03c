#include "qtcomm/image_path.h"
#include "qtcomm/skin_helper.h"

#include <QTemporaryDir>
#include <QtTest>

#include <limits>

class TestImagePath : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        for (QString const name : {"both.png", "base_only.png", "noext"})
            Write(name, 10, Qt::red);
        for (QString const name : {"both@2x.png", "double_only@2x.png", "noext@2x"})
            Write(name, 20, Qt::blue);
    }

    void pixmapPathFollowsTheNamingRule_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("ratio");
        QTest::addColumn<QString>("expected");
        QTest::newRow("ratio 2 has its file") << "both.png" << 2 << "both@2x.png";
        QTest::newRow("ratio 3 falls back to the base") << "both.png" << 3 << "both.png";
        QTest::newRow("ratio 0 counts as 1") << "both.png" << 0 << "both.png";
        QTest::newRow("base only") << "base_only.png" << 2 << "base_only.png";
        QTest::newRow("ratio file without base") << "double_only.png" << 2 << "double_only@2x.png";
        QTest::newRow("neither") << "double_only.png" << 1 << "";
        QTest::newRow("missing") << "missing.png" << 2 << "";
        QTest::newRow("no suffix") << "noext" << 2 << "noext@2x";
        QTest::newRow("svg has no set") << ":/images/light/refresh.svg" << 2 << ":/images/light/refresh.svg";
    }
    void pixmapPathFollowsTheNamingRule()
    {
        QFETCH(QString, path);
        QFETCH(int, ratio);
        QFETCH(QString, expected);
        std::string const result = ImagePath::GetPixmapPath(File(path).toStdString(), ratio);
        QCOMPARE(QString::fromStdString(result), expected.isEmpty() ? QString() : File(expected));
    }

    // `color` is the pixel at (4, 4) logical; invalid: not looked at.
    void pixmapForScale_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<float>("scale");
        QTest::addColumn<float>("stretch");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QColor>("color");
        QColor const red(Qt::red), blue(Qt::blue), none;
        QTest::newRow("1.0 from the base") << "both.png" << 1.0f << 1.0f << QSize(10, 10) << red;
        QTest::newRow("1.25 stretches the base") << "both.png" << 1.25f << 1.25f << QSize(12, 12) << red;
        QTest::newRow("1.5 shrinks @2x") << "both.png" << 1.5f << 0.75f << QSize(15, 15) << blue;
        QTest::newRow("2.0 from @2x") << "both.png" << 2.0f << 1.0f << QSize(20, 20) << blue;
        QTest::newRow("2.5 without @3x") << "both.png" << 2.5f << 2.5f / 3.0f << QSize(25, 25) << red;
        QTest::newRow("1.5 without @2x") << "base_only.png" << 1.5f << 0.75f << QSize(15, 15) << red;
        QTest::newRow("0.5, ratio never below 1") << "base_only.png" << 0.5f << 0.5f << QSize(5, 5) << red;
        // SVG is rendered at the exact scale, truncated, and drawn, not only sized.
        QString const box = ":/images/light/check_box_checked.svg"; // 16 by 16, filled with the accent
        QString const arrow = ":/images/dark/arrow_expand.svg";     // 12 by 12
        QColor const accent(QString::fromStdWString(GetSkinHelper()->GetColorText(L"gallery", L"accent")));
        QTest::newRow("box 1.0") << box << 1.0f << 1.0f << QSize(16, 16) << accent;
        QTest::newRow("box 1.5") << box << 1.5f << 0.75f << QSize(24, 24) << accent;
        QTest::newRow("box 1.1 truncates") << box << 1.1f << 1.1f << QSize(17, 17) << none;
        QTest::newRow("arrow 1.25") << arrow << 1.25f << 1.25f << QSize(15, 15) << none;
        QTest::newRow("tiny scale keeps a pixel") << arrow << 0.01f << 0.01f << QSize(1, 1) << none;
    }
    void pixmapForScale()
    {
        QFETCH(QString, path);
        QFETCH(float, scale);
        QFETCH(float, stretch);
        QFETCH(QSize, size);
        QFETCH(QColor, color);
        QCOMPARE(ImagePath::GetStretchFactor(scale), stretch);
        QPixmap const pixmap = ImagePath::GetStretchPixmap(File(path).toStdWString(), scale);
        QCOMPARE(pixmap.size(), size);
        QCOMPARE(pixmap.devicePixelRatio(), 1.0); // also for a "@2x" file, which Qt would mark 2
        QImage const image = pixmap.toImage();
        if (color.isValid())
            QCOMPARE(QColor(image.pixel(int(4 * scale), int(4 * scale))), color);
        if (path.endsWith(".svg")) {
            QVERIFY(!color.isValid() || qAlpha(image.pixel(0, 0)) == 0); // the box's corner stays transparent
        }
    }

    void badInput()
    {
        QVERIFY(ImagePath::GetStretchPixmap(L"", 1.0f).isNull());
        QVERIFY(ImagePath::GetStretchPixmap(File("missing.png").toStdWString(), 1.0f).isNull());
        QVERIFY(ImagePath::GetStretchPixmap(L":/images/light/missing.svg", 1.5f).isNull());
        QVERIFY(ImagePath::GetStretchPixmap(File("double_only.png").toStdWString(), 1.0f).isNull());
        QVERIFY(ImagePath::GetPixmapPath(std::string(), 2).empty());
        // A scale that is no positive number counts as 1.0.
        float const nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
        for (float scale : {0.0f, -2.0f, nan, inf})
            QCOMPARE(ImagePath::GetStretchPixmap(L":/images/light/refresh.svg", scale).size(), QSize(16, 16));
    }

private:
    QString File(QString const &name) const { return name.startsWith(':') ? name : m_dir.filePath(name); }
    void Write(QString const &name, int size, QColor const &color)
    {
        QImage image(size, size, QImage::Format_ARGB32);
        image.fill(color);
        QVERIFY(image.save(File(name), "PNG"));
    }

    QTemporaryDir m_dir;
};

QTEST_MAIN(TestImagePath)
#include "tst_image_path.moc"
