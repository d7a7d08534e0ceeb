#include "TabFace.h"

#include <QtGui/QPixmap>

#include <gtest/gtest.h>

namespace {

TabRecord MakePage()
{
    TabRecord record;
    record.address = QUrl(QStringLiteral("https://shop.example/"));
    return record;
}

TabRecord MakeApp()
{
    TabRecord record;
    record.type = TabType::WebApp;
    record.serviceCode = QStringLiteral("orders");
    record.appName = QStringLiteral("Orders");
    record.appIconUrl = QStringLiteral("https://icons.example/orders.png");
    record.address = QUrl(QStringLiteral("https://orders.example/"));
    return record;
}

QIcon MakeIcon(Qt::GlobalColor color)
{
    QPixmap picture(16, 16);
    picture.fill(color);
    return QIcon(picture);
}

QColor GetColor(const TabFace& face)
{
    return face.GetIcon().pixmap(16, 16).toImage().pixelColor(8, 8);
}

} // namespace

TEST(TabFaceTest, APageIsNamedByItsHostUntilItSaysItsTitle)
{
    TabFace face(MakePage());
    EXPECT_EQ(face.GetRecord().title, QStringLiteral("shop.example"));
    EXPECT_EQ(face.GetRecord().routerUrl,
              QStringLiteral("tl://browser/open?url=https%3A%2F%2Fshop.example%2F"));
    face.SetPageTitle(QStringLiteral("  The \n shop "));
    EXPECT_EQ(face.GetRecord().title, QStringLiteral("The shop"));
    EXPECT_EQ(face.GetReopenRecord().title, QStringLiteral("The shop"));
    face.SetPageTitle(QString());
    EXPECT_EQ(face.GetRecord().title, QStringLiteral("shop.example"));
    EXPECT_EQ(face.GetReopenRecord().title, QString()) << "a title that nobody gave";
}

TEST(TabFaceTest, WhatTheOpenerGaveHoldsForItsAddressOnly)
{
    TabRecord opened = MakePage();
    opened.title = QStringLiteral("Saved");
    opened.iconUrl = QStringLiteral("https://shop.example/i.png");
    TabFace face(opened);
    EXPECT_EQ(face.GetRecord().title, QStringLiteral("Saved"));
    EXPECT_EQ(face.GetRecord().iconUrl, QStringLiteral("https://shop.example/i.png"));
    face.SetAddress(QUrl(QStringLiteral("https://other.example/")));
    EXPECT_EQ(face.GetRecord().title, QStringLiteral("other.example"));
    EXPECT_EQ(face.GetRecord().iconUrl, QString());
    EXPECT_EQ(face.GetRecord().routerUrl,
              QStringLiteral("tl://browser/open?url=https%3A%2F%2Fother.example%2F"));
    EXPECT_EQ(face.GetReopenRecord().address, QUrl(QStringLiteral("https://other.example/")));
}

TEST(TabFaceTest, AnAddressThatAPageMadeItselfIsNotOpenedAgain)
{
    TabFace face(MakePage());
    const QUrl made(QStringLiteral("blob:https://shop.example/7f2c"));
    face.SetAddress(made);
    EXPECT_EQ(face.GetRecord().address, made);
    EXPECT_EQ(face.GetRecord().routerUrl,
              QStringLiteral("tl://browser/open?url=https%3A%2F%2Fshop.example%2F"));
    EXPECT_EQ(face.GetReopenRecord().address, QUrl(QStringLiteral("https://shop.example/")));
}

TEST(TabFaceTest, NameAndIconByTheAppListAreShownButNotStoredAsTheTabsOwn)
{
    TabFace face(MakeApp());
    EXPECT_EQ(face.GetRecord().title, QStringLiteral("Orders"));
    EXPECT_EQ(face.GetRecord().iconUrl, QStringLiteral("https://icons.example/orders.png"));
    EXPECT_EQ(face.GetReopenRecord(), MakeApp());

    TabRecord renamed = MakeApp();
    renamed.appName = QStringLiteral("Sales");
    face.SetApp(renamed);
    EXPECT_EQ(face.GetRecord().title, QStringLiteral("Sales"));
}

TEST(TabFaceTest, AnAppThatTheListHasLostKeepsItsFace)
{
    TabFace face(MakeApp());
    TabRecord lost;
    lost.type = TabType::WebApp;
    lost.serviceCode = QStringLiteral("orders");
    lost.trouble = TabRecord::Trouble::UnknownApp;
    face.SetApp(lost);
    EXPECT_EQ(face.GetRecord().title, QStringLiteral("Orders"));
    EXPECT_EQ(face.GetRecord().iconUrl, QStringLiteral("https://icons.example/orders.png"));
    EXPECT_EQ(face.GetRecord().trouble, TabRecord::Trouble::UnknownApp);
    EXPECT_TRUE(face.GetRecord().address.isEmpty());
}

TEST(TabFaceTest, ThePagesIconGoesBeforeTheFetchedOne)
{
    TabRecord opened = MakePage();
    opened.iconUrl = QStringLiteral("https://shop.example/i.png");
    TabFace face(opened);
    EXPECT_EQ(face.TakeIconRequest(), opened.iconUrl);
    EXPECT_EQ(face.TakeIconRequest(), QString());
    face.SetOpenedIcon(MakeIcon(Qt::red));
    EXPECT_EQ(GetColor(face), QColor(Qt::red));
    face.SetPageIcon(QUrl(QStringLiteral("https://shop.example/own.png")), MakeIcon(Qt::blue));
    EXPECT_EQ(GetColor(face), QColor(Qt::blue));
    EXPECT_EQ(face.GetRecord().iconUrl, QStringLiteral("https://shop.example/own.png"));
    face.SetPageIcon(QUrl(), QIcon());
    EXPECT_EQ(GetColor(face), QColor(Qt::red));
}

TEST(TabFaceTest, ATabThatIsNotToBeRememberedHasNoRouterUrl)
{
    TabRecord opened = MakePage();
    opened.remember = false;
    TabFace face(opened);
    EXPECT_EQ(face.GetRecord().routerUrl, QString());
    EXPECT_FALSE(face.GetRecord().remember);
    EXPECT_FALSE(face.GetReopenRecord().remember);
}
