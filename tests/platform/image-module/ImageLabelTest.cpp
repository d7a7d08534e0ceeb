#include "image-module/ImageLabel.h"

#include "Pictures.h"
#include "ScriptedHttpServer.h"
#include "WaitUntil.h"

#include "base/Provided.h"
#include "http/VXImageCache.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

const QString None;

/// Counts events of one type that reach a widget.
class EventCounter final : public QObject
{
public:
    EventCounter(QWidget* watched, QEvent::Type type) : m_type(type) { watched->installEventFilter(this); }

    int GetCount() const { return m_count; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_count += event->type() == m_type ? 1 : 0;
        return false;
    }

private:
    const QEvent::Type m_type;
    int m_count = 0;
};

class ImageLabelTest : public ::testing::Test
{
protected:
    ImageLabelTest()
    {
        EXPECT_TRUE(Pictures::Image(QSize(8, 8), Qt::yellow).save(m_default));
        m_label->setFixedSize(16, 16);
        m_label->SetPixmapParam(16, 16, 0, 0);
    }

    QString Url(const QString& path = QStringLiteral("/icon")) const
    {
        return m_server.GetUrl(path).toString();
    }

    static ScriptedReply Body(const QColor& color, QSize size = QSize(64, 64))
    {
        return ScriptedReply::Of(ScriptedReply::Kind::Whole, Pictures::Png(color, size));
    }

    /// The label on nothing, in device pixels.
    static QImage Painted(ImageLabel* label, qreal ratio = 1)
    {
        QImage image(label->size() * ratio, QImage::Format_ARGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        label->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }
    QColor Middle() const
    {
        return Painted(m_label.get()).pixelColor(m_label->width() / 2, m_label->height() / 2);
    }
    bool Shows(const QColor& color) const
    {
        return WaitUntil([this, color] { return Middle() == color; });
    }
    bool ShowsNothing() const { return Middle().alpha() == 0; }

    /// Returns when the cache has answered what was asked of it up to now.
    void Settle()
    {
        bool isAnswered = false;
        m_cache.FetchImage(Url(), this->m_label.get(), [&isAnswered](const QImage&) { isAnswered = true; });
        ASSERT_TRUE(WaitUntil([&isAnswered] { return isAnswered; }));
    }

    QTemporaryDir m_folder;
    const QString m_default = m_folder.filePath(QStringLiteral("default.png"));
    ScriptedHttpServer m_server;
    VXImageCache m_cache{m_folder.filePath(QStringLiteral("pictures"))};
    const Provided<VXImageCache> m_provided{&m_cache};
    std::unique_ptr<ImageLabel> m_label = std::make_unique<ImageLabel>();
};

TEST_F(ImageLabelTest, ShowsThePictureWhenItIsThere)
{
    m_server.Enqueue(Body(Qt::blue));
    EXPECT_TRUE(ShowsNothing());
    m_label->SetImage(Url(), None);
    EXPECT_TRUE(ShowsNothing());
    EXPECT_TRUE(Shows(Qt::blue));
}

TEST_F(ImageLabelTest, ShowsTheDefaultWhileThePictureIsOnItsWay)
{
    m_server.Enqueue(Body(Qt::blue).Held());
    m_label->SetImage(Url(), m_default);
    EXPECT_EQ(Middle(), QColor(Qt::yellow));
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequestCount() == 1; }));
    EXPECT_EQ(Middle(), QColor(Qt::yellow));
    m_server.Release();
    EXPECT_TRUE(Shows(Qt::blue));
}

TEST_F(ImageLabelTest, AMissingPictureLeavesTheDefault)
{
    ScriptedReply missing = Body(Qt::blue);
    missing.status = 404;
    m_server.Enqueue(missing);
    m_label->SetImage(Url(), m_default);
    Settle();
    EXPECT_EQ(Middle(), QColor(Qt::yellow));
}

TEST_F(ImageLabelTest, WhatIsNoPictureLeavesTheDefault)
{
    m_server.Enqueue(ScriptedReply::Html("<html></html>"));
    m_label->SetImage(Url(), m_default);
    Settle();
    EXPECT_EQ(Middle(), QColor(Qt::yellow));
    m_label->SetImage(QStringLiteral("file:///etc/hostname"), m_default);
    Settle();
    EXPECT_EQ(Middle(), QColor(Qt::yellow));
}

TEST_F(ImageLabelTest, AnEmptyDefaultIsNothingAtFirstAndTheProgramsPictureInPlaceOfAMissingOne)
{
    m_server.SetStanding(ScriptedReply::Html("<html></html>"));
    m_label->SetImage(Url(), None);
    EXPECT_TRUE(ShowsNothing());
    Settle();
    EXPECT_EQ(Middle(), QColor(1, 2, 3)) << "the one in resources.qrc";
}

TEST_F(ImageLabelTest, ADefaultThatIsNoPictureIsNothing)
{
    m_label->SetImage(None, m_folder.filePath(QStringLiteral("missing.png")));
    EXPECT_TRUE(ShowsNothing());
}

TEST_F(ImageLabelTest, AnEmptyAddressShowsTheDefaultAndAsksNobody)
{
    m_server.Enqueue(Body(Qt::blue));
    m_label->SetImage(Url(), None);
    EXPECT_TRUE(Shows(Qt::blue));
    m_label->SetImage(None, m_default);
    EXPECT_EQ(Middle(), QColor(Qt::yellow));
    m_label->SetImage(None, None);
    EXPECT_TRUE(ShowsNothing());
    EXPECT_EQ(m_server.GetRequestCount(), 1);
}

TEST_F(ImageLabelTest, AnAddressGivenUpMeanwhileIsNotShown)
{
    m_server.Enqueue(Body(Qt::red).Held());
    m_server.Enqueue(Body(Qt::blue));
    m_label->SetImage(Url(QStringLiteral("/first")), m_default);
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequestCount() == 1; }));
    m_label->SetImage(Url(QStringLiteral("/second")), m_default);
    EXPECT_TRUE(Shows(Qt::blue));
    bool isThere = false;
    m_cache.FetchImage(Url(QStringLiteral("/first")), m_label.get(),
                       [&isThere](const QImage& image) { isThere = !image.isNull(); });
    m_server.Release();
    ASSERT_TRUE(WaitUntil([&isThere] { return isThere; }));
    EXPECT_EQ(Middle(), QColor(Qt::blue));
}

TEST_F(ImageLabelTest, AnAddressGivenUpForNoneIsNotShown)
{
    m_server.Enqueue(Body(Qt::red).Held());
    m_label->SetImage(Url(), None);
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequestCount() == 1; }));
    m_label->SetImage(None, m_default);
    m_server.Release();
    Settle();
    EXPECT_EQ(Middle(), QColor(Qt::yellow));
}

TEST_F(ImageLabelTest, AnotherAddressTakesTheFormerPictureAwayAtOnce)
{
    m_server.Enqueue(Body(Qt::red));
    m_server.Enqueue(Body(Qt::blue).Held());
    m_label->SetImage(Url(QStringLiteral("/first")), None);
    EXPECT_TRUE(Shows(Qt::red));
    m_label->SetImage(Url(QStringLiteral("/second")), None);
    EXPECT_TRUE(ShowsNothing());
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequestCount() == 2; }));
    m_server.Release();
    EXPECT_TRUE(Shows(Qt::blue));
}

TEST_F(ImageLabelTest, TheSameAddressAgainKeepsThePicture)
{
    m_server.Enqueue(Body(Qt::blue));
    m_label->SetImage(Url(), m_default);
    EXPECT_TRUE(Shows(Qt::blue));
    m_label->SetImage(Url(), m_default);
    EXPECT_EQ(Middle(), QColor(Qt::blue));
    Settle();
    EXPECT_EQ(Middle(), QColor(Qt::blue));
    EXPECT_EQ(m_server.GetRequestCount(), 1);
}

TEST_F(ImageLabelTest, MayBeDestroyedWhileThePictureIsOnItsWay)
{
    m_server.Enqueue(Body(Qt::blue).Held());
    m_label->SetImage(Url(), None);
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequestCount() == 1; }));
    m_label.reset();
    bool isThere = false;
    m_cache.FetchImage(Url(), &m_cache, [&isThere](const QImage& image) { isThere = !image.isNull(); });
    m_server.Release();
    EXPECT_TRUE(WaitUntil([&isThere] { return isThere; }));
}

TEST_F(ImageLabelTest, FiveHundredLabelsOfOneAddressMakeOneDownload)
{
    m_server.SetStanding(Body(Qt::blue));
    QWidget row;
    QHBoxLayout layout(&row);
    std::vector<ImageLabel*> labels;
    for (int i = 0; i < 500; ++i) {
        labels.push_back(new ImageLabel(&row));
        labels.back()->setFixedSize(16, 16);
        labels.back()->SetImage(Url(), None);
    }
    for (ImageLabel* const label : labels) {
        EXPECT_TRUE(WaitUntil([label] { return Painted(label).pixelColor(8, 8) == QColor(Qt::blue); }));
    }
    EXPECT_EQ(m_server.GetRequestCount(), 1);
}

TEST_F(ImageLabelTest, AShownLabelIsPaintedAnewWhenThePictureComes)
{
    QWidget window;
    QHBoxLayout layout(&window);
    layout.addWidget(m_label.get());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EventCounter paints(m_label.get(), QEvent::Paint);
    m_server.Enqueue(Body(Qt::blue));
    m_label->SetImage(Url(), None);
    const int before = paints.GetCount();
    EXPECT_TRUE(WaitUntil([&] { return paints.GetCount() > before; }));
    EXPECT_TRUE(Shows(Qt::blue));
    m_label->setParent(nullptr);
}

TEST_F(ImageLabelTest, AWidePictureKeepsItsProportions)
{
    m_server.Enqueue(Body(Qt::blue, QSize(64, 32)));
    m_label->SetImage(Url(), None);
    EXPECT_TRUE(Shows(Qt::blue));
    const QImage painted = Painted(m_label.get());
    EXPECT_EQ(painted.pixelColor(8, 3).alpha(), 0);
    EXPECT_EQ(painted.pixelColor(8, 4), QColor(Qt::blue));
    EXPECT_EQ(painted.pixelColor(0, 11), QColor(Qt::blue));
    EXPECT_EQ(painted.pixelColor(15, 12).alpha(), 0);
}

TEST_F(ImageLabelTest, TheBoxStandsInTheMiddleOfALargerLabel)
{
    m_label->setFixedSize(32, 24);
    EXPECT_EQ(m_label->sizeHint(), QSize(16, 16));
    m_label->SetImage(None, m_default);
    const QImage painted = Painted(m_label.get());
    EXPECT_EQ(painted.pixelColor(8, 4), QColor(Qt::yellow));
    EXPECT_EQ(painted.pixelColor(23, 19), QColor(Qt::yellow));
    EXPECT_EQ(painted.pixelColor(7, 12).alpha(), 0);
    EXPECT_EQ(painted.pixelColor(16, 20).alpha(), 0);
}

TEST_F(ImageLabelTest, WithoutABoxThePictureFillsTheLabel)
{
    ImageLabel label;
    label.setFixedSize(40, 40);
    label.SetImage(None, m_default);
    EXPECT_EQ(Painted(&label).pixelColor(0, 0), QColor(Qt::yellow));
    EXPECT_EQ(Painted(&label).pixelColor(39, 39), QColor(Qt::yellow));
}

TEST_F(ImageLabelTest, TheMaskRoundsTheCornersSmoothly)
{
    m_label->SetImage(None, m_default);
    EXPECT_EQ(Painted(m_label.get()).pixelColor(0, 0), QColor(Qt::yellow));
    m_label->SetPluginMask(4);
    const QImage painted = Painted(m_label.get());
    for (const QPoint corner : {QPoint(0, 0), QPoint(15, 0), QPoint(0, 15), QPoint(15, 15)}) {
        EXPECT_LT(painted.pixelColor(corner).alpha(), 40) << corner.x() << ' ' << corner.y();
    }
    EXPECT_EQ(painted.pixelColor(0, 8), QColor(Qt::yellow));
    EXPECT_EQ(painted.pixelColor(8, 0), QColor(Qt::yellow));
    const int edge = painted.pixelColor(1, 1).alpha();
    EXPECT_TRUE(edge > 40 && edge < 255) << edge;
    m_label->SetPluginMask(0);
    EXPECT_EQ(Painted(m_label.get()).pixelColor(0, 0), QColor(Qt::yellow));
}

TEST_F(ImageLabelTest, TheMaskCutsTheBoxAndTheRadiiCutThePicture)
{
    m_server.Enqueue(Body(Qt::blue, QSize(64, 32)));
    m_label->SetImage(Url(), None);
    EXPECT_TRUE(Shows(Qt::blue));
    m_label->SetPluginMask(4); // the picture does not reach the corners of the box
    EXPECT_EQ(Painted(m_label.get()).pixelColor(0, 4), QColor(Qt::blue));
    m_label->SetPixmapParam(16, 16, 4, 4);
    EXPECT_LT(Painted(m_label.get()).pixelColor(0, 4).alpha(), 40);
    EXPECT_EQ(Painted(m_label.get()).pixelColor(8, 4), QColor(Qt::blue));
    const int edge = Painted(m_label.get()).pixelColor(1, 5).alpha();
    EXPECT_TRUE(edge > 0 && edge < 255) << edge;
}

TEST_F(ImageLabelTest, ARowAtTwiceTheScaleHasTwiceTheFace)
{
    m_label->SetImage(None, m_default);
    m_label->setFixedSize(32, 32);
    m_label->SetPixmapParam(32, 32, 4, 4);
    m_label->SetPluginMask(8);
    const QImage painted = Painted(m_label.get());
    EXPECT_LT(painted.pixelColor(1, 1).alpha(), 40);
    EXPECT_EQ(painted.pixelColor(0, 16), QColor(Qt::yellow));
    EXPECT_EQ(painted.pixelColor(3, 3), QColor(Qt::yellow));
}

TEST_F(ImageLabelTest, IsSharpAtEveryDevicePixelRatio)
{
    // Lines of one pixel, which only a picture drawn in device pixels keeps apart.
    QImage lines(32, 32, QImage::Format_RGB32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            lines.setPixelColor(x, y, x % 2 == 0 ? Qt::black : Qt::white);
        }
    }
    const QString file = m_folder.filePath(QStringLiteral("lines.png"));
    ASSERT_TRUE(lines.save(file));
    m_label->SetImage(None, file);
    EXPECT_NE(Painted(m_label.get()).pixelColor(4, 8), QColor(Qt::black));
    const QImage painted = Painted(m_label.get(), 2);
    ASSERT_EQ(painted.size(), QSize(32, 32));
    EXPECT_EQ(painted.pixelColor(8, 16), QColor(Qt::black));
    EXPECT_EQ(painted.pixelColor(9, 16), QColor(Qt::white));
}

TEST_F(ImageLabelTest, ClicksGoToTheRow)
{
    QWidget row;
    EventCounter presses(&row, QEvent::MouseButtonPress);
    m_label->setParent(&row);
    row.resize(100, 32);
    m_label->move(10, 8);
    row.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&row));
    EXPECT_EQ(row.childAt(18, 16), nullptr);
    QTest::mouseClick(row.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(18, 16));
    EXPECT_EQ(presses.GetCount(), 1);
    m_label->setParent(nullptr);
}

} // namespace
