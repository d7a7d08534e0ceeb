#include "AutoRunUiTest.h"

#include "ScriptedHttpServer.h"
#include "WaitUntil.h"

#include "ui/AutoRunPluginItem.h"

#include "AutoRunRouterUrls.h"

#include "base/DpiTool.h"
#include "image-module/ImageLabel.h"

#include <QtCore/QBuffer>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>

namespace {

class AutoRunPluginItemTest : public AutoRunUiTest
{
protected:
    static ScriptedReply Picture(const QColor& color)
    {
        QImage image(QSize(64, 64), QImage::Format_ARGB32);
        image.fill(color);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        return ScriptedReply::Of(ScriptedReply::Kind::Whole, buffer.data());
    }

    static QImage Painted(QWidget* widget)
    {
        QImage image(widget->size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        widget->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }
    static QColor Middle(QWidget* widget) { return Painted(widget).pixelColor(widget->rect().center()); }

    ScriptedHttpServer server;
};

} // namespace

TEST_F(AutoRunPluginItemTest, IconUrlIsThatOfTheAppWithTheEntrysKey)
{
    apps->SetPlugins({App(QStringLiteral("Orders"), QStringLiteral("orders"), QStringLiteral("https://i/1")),
                      App(QStringLiteral("Stock"), QStringLiteral("stock"), QStringLiteral("https://i/2"))});
    AutoRunPluginItem row;
    row.SetData(Entry(QStringLiteral("Stock"), QStringLiteral("stock")));
    EXPECT_EQ(row.GetIconUrl(), QStringLiteral("https://i/2"));
    QString url;
    ASSERT_TRUE(QMetaObject::invokeMethod(&row, "GetIconUrl", Q_RETURN_ARG(QString, url)));
    EXPECT_EQ(url, QStringLiteral("https://i/2"));
    row.SetData(Entry(QStringLiteral("Stock"), QStringLiteral("STOCK")));
    EXPECT_EQ(row.GetIconUrl(), QString()) << "keys are compared exactly";
}

TEST_F(AutoRunPluginItemTest, AppThatIsGoneHasNoIconAndItsNameStays)
{
    AutoRunPluginItem row;
    row.SetData(Entry(QStringLiteral("Stock"), QStringLiteral("stock")));
    EXPECT_EQ(row.GetIconUrl(), QString());
    EXPECT_EQ(row.GetShowText(), QStringLiteral("Stock"));
    EXPECT_EQ(Middle(row.GetIconWidget()).alpha(), 0) << "nothing, not a default picture";
    EXPECT_EQ(server.GetRequestCount(), 0);
}

TEST_F(AutoRunPluginItemTest, WithoutAnAppListTheIconStaysEmpty)
{
    routes.SetRouteObject(AutoRunRouterUrls::PluginsObject(), nullptr);
    AutoRunPluginItem row;
    row.SetData(Entry(QStringLiteral("Stock"), QStringLiteral("stock")));
    EXPECT_EQ(row.GetIconUrl(), QString());
    ASSERT_NE(row.GetIconWidget(), nullptr);
    EXPECT_EQ(Middle(row.GetIconWidget()).alpha(), 0);
}

TEST_F(AutoRunPluginItemTest, IconStandsBeforeTheTextInASizeThatFollowsTheScale)
{
    for (const int scale : {1, 2}) {
        DpiTool::SetScale(scale);
        AutoRunPluginItem row;
        row.SetData(Entry(QStringLiteral("Stock"), QStringLiteral("stock")));
        auto* const icon = qobject_cast<ImageLabel*>(row.GetIconWidget());
        ASSERT_NE(icon, nullptr);
        EXPECT_EQ(icon->parentWidget(), &row);
        EXPECT_EQ(icon->minimumSize(), QSize(16, 16) * scale);
        EXPECT_EQ(icon->maximumSize(), QSize(16, 16) * scale);
        EXPECT_EQ(icon->sizeHint(), QSize(16, 16) * scale) << "the box of the picture";
        EXPECT_EQ(Find<QHBoxLayout>(row, "iconLabeLayout")->itemAt(0)->widget(), icon);
    }
}

TEST_F(AutoRunPluginItemTest, AskingTwiceForTheIconGivesTheSameLabel)
{
    AutoRunPluginItem row;
    row.SetData(Entry(QStringLiteral("Stock"), QStringLiteral("stock")));
    QWidget* const icon = row.GetIconWidget();
    row.SetData(row.GetData());
    EXPECT_EQ(row.GetIconWidget(), icon);
    EXPECT_EQ(row.findChildren<ImageLabel*>().size(), 1);
    EXPECT_EQ(Find<QHBoxLayout>(row, "iconLabeLayout")->count(), 1);
}

TEST_F(AutoRunPluginItemTest, ShowsTheAppsPictureWithRoundedCornersAndThenAnotherApps)
{
    server.SetStanding(Picture(Qt::blue));
    apps->SetPlugins({App(QStringLiteral("Orders"), QStringLiteral("orders"), server.GetUrl().toString()),
                      App(QStringLiteral("Stock"), QStringLiteral("stock"),
                          server.GetUrl(QStringLiteral("/stock")).toString())});
    AutoRunPluginItem row;
    row.SetData(Entry(QStringLiteral("Orders"), QStringLiteral("orders")));
    QWidget* const icon = row.GetIconWidget();
    ASSERT_TRUE(WaitUntil([icon] { return Middle(icon) == QColor(Qt::blue); }));
    EXPECT_EQ(Painted(icon).pixelColor(0, 0).alpha(), 0);
    EXPECT_GT(Painted(icon).pixelColor(8, 0).alpha(), 0);

    server.SetStanding(Picture(Qt::green));
    row.GetData()->url = QStringLiteral("stock");
    row.SetData(row.GetData());
    EXPECT_TRUE(WaitUntil([icon] { return Middle(icon) == QColor(Qt::green); }));
}

TEST_F(AutoRunPluginItemTest, ThePictureGoesWithTheAppThatHadOne)
{
    server.SetStanding(Picture(Qt::blue));
    apps->SetPlugins({App(QStringLiteral("Orders"), QStringLiteral("orders"), server.GetUrl().toString()),
                      App(QStringLiteral("Stock"), QStringLiteral("stock"), QString())});
    AutoRunPluginItem row;
    row.SetData(Entry(QStringLiteral("Orders"), QStringLiteral("orders")));
    QWidget* const icon = row.GetIconWidget();
    ASSERT_TRUE(WaitUntil([icon] { return Middle(icon) == QColor(Qt::blue); }));
    row.GetData()->url = QStringLiteral("stock");
    row.SetData(row.GetData());
    EXPECT_EQ(Middle(icon).alpha(), 0);
    EXPECT_EQ(row.GetIconWidget(), icon);
}

TEST_F(AutoRunPluginItemTest, IconOfAnotherScaleHasTheRoundingOfFourAndTheMaskOfEight)
{
    DpiTool::SetScale(2);
    server.SetStanding(Picture(Qt::blue));
    apps->SetPlugins({App(QStringLiteral("Orders"), QStringLiteral("orders"), server.GetUrl().toString())});
    AutoRunPluginItem row;
    row.SetData(Entry(QStringLiteral("Orders"), QStringLiteral("orders")));
    QWidget* const icon = row.GetIconWidget();
    ASSERT_TRUE(WaitUntil([icon] { return Middle(icon) == QColor(Qt::blue); }));

    ImageLabel expected;
    expected.setFixedSize(32, 32);
    expected.SetPixmapParam(32, 32, 4, 4);
    expected.SetPluginMask(8);
    expected.SetImage(server.GetUrl().toString(), QString());
    ASSERT_TRUE(WaitUntil([&expected] { return Middle(&expected) == QColor(Qt::blue); }));
    EXPECT_EQ(Painted(icon), Painted(&expected));
}

TEST_F(AutoRunPluginItemTest, RowThatIsDestroyedWhileItsPictureIsOnItsWayIsLeftAlone)
{
    server.Enqueue(Picture(Qt::blue).Held());
    apps->SetPlugins({App(QStringLiteral("Orders"), QStringLiteral("orders"), server.GetUrl().toString())});
    auto row = std::make_unique<AutoRunPluginItem>();
    row->SetData(Entry(QStringLiteral("Orders"), QStringLiteral("orders")));
    ASSERT_TRUE(WaitUntil([this] { return server.GetRequestCount() == 1; }));
    row.reset();
    bool isAnswered = false;
    images.FetchImage(server.GetUrl().toString(), &server,
                      [&isAnswered](const QImage&) { isAnswered = true; });
    server.Release();
    EXPECT_TRUE(WaitUntil([&isAnswered] { return isAnswered; }));
}
