#include "PageEngines.h"

#include "plain/PlainPageFactory.h"

#include <QtCore/QStringList>

#include <gtest/gtest.h>

TEST(PageEnginesTest, NamesAreThoseOfTheBuiltInEngines)
{
    const QStringList expected = TL_HAS_WEB_ENGINE
                                     ? QStringList{QStringLiteral("web"), QStringLiteral("plain")}
                                     : QStringList{QStringLiteral("plain")};
    EXPECT_EQ(PageEngines::GetNames(), expected);
    EXPECT_EQ(PageEngines::FromName(QStringLiteral("web")).has_value(), bool(TL_HAS_WEB_ENGINE));
    EXPECT_EQ(PageEngines::FromName(QStringLiteral("plain")), PageEngine::Plain);
    EXPECT_EQ(PageEngines::FromName(QStringLiteral("Plain")), std::nullopt);
    EXPECT_EQ(PageEngines::FromName(QString()), std::nullopt);
}

TEST(PageEnginesTest, TheWebEngineIsTheBestWhereThereIsOne)
{
    EXPECT_EQ(PageEngines::GetBest(), TL_HAS_WEB_ENGINE ? PageEngine::Web : PageEngine::Plain);
}

TEST(PageEnginesTest, PlainPagesAreAvailableEverywhere)
{
    const auto pages = PageEngines::Make(PageEngine::Plain, QString(), QStringLiteral("en"));
    EXPECT_NE(qobject_cast<PlainPageFactory*>(pages.get()), nullptr);
}
