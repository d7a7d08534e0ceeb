#include "PlatformAutoRunSettingFactory.h"

#include "AutoRunRouterUrls.h"
#include "AutoRunTest.h"
#include "VTablePlaces.h"
#include "ui/AutoRunSettingWidget.h"

#include "frame-data/TLFunctionData.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>

#include <gmock/gmock.h>

#include <memory>

using ::testing::ElementsAre;
using VTablePlaces::SlotOf;

namespace {

constexpr SettingWidgetId PageId(10, 60);

const QStringList Captions{
    QStringLiteral("Homepage"), QStringLiteral("Set the URL that opens when you start it"),
    QStringLiteral("+custom URL"), QStringLiteral("Set the App that opens when you start it"),
    QStringLiteral("+Add App")};

class PlatformAutoRunSettingFactoryTest : public AutoRunTest
{
protected:
    PlatformAutoRunSettingFactoryTest()
    {
        routes.SetRouteObject(AutoRunRouterUrls::FunctionsObject(), &functions);
        SetFunction(true, true);
    }

    void SetFunction(bool valid, bool display)
    {
        functions.SetFunctions({{8, TLFunctionInfo(valid, display)}});
    }

    TLFunctionData functions;
    PlatformAutoRunSettingFactory factory;
};

/// Overrides only what it must, so that all else in its vtable is the host's.
class PlainFactory final : public ISysSettingFactory
{
public:
    QList<SettingWidgetId> GetSettingWidgetIds() override { return {}; }
    SettingItemBaseWidget* CreateSettingWidget(SettingWidgetId) override { return nullptr; }
    QStringList GetSearchKeywords(SettingWidgetId) override { return {}; }
};

} // namespace

TEST_F(PlatformAutoRunSettingFactoryTest, DisplayedFunctionHasItsOnePage)
{
    EXPECT_EQ(factory.GetSettingWidgetIds(), QList<SettingWidgetId>{PageId});
}

TEST_F(PlatformAutoRunSettingFactoryTest, FunctionThatIsNotDisplayedHasNoPageAndNoWordsButIsMadeWhenAskedFor)
{
    ReadConfiguration(R"({"name":"Orders"})");
    SetFunction(true, false);
    EXPECT_EQ(factory.GetSettingWidgetIds(), QList<SettingWidgetId>());
    EXPECT_EQ(factory.GetSearchKeywords(PageId), QStringList());
    const std::unique_ptr<SettingItemBaseWidget> page(factory.CreateSettingWidget(PageId));
    EXPECT_NE(qobject_cast<AutoRunSettingWidget*>(page.get()), nullptr);
}

TEST_F(PlatformAutoRunSettingFactoryTest, FunctionThatIsNotValidIsListedWithoutWords)
{
    ReadConfiguration(R"({"name":"Orders"})");
    SetFunction(false, true);
    EXPECT_EQ(factory.GetSettingWidgetIds(), QList<SettingWidgetId>{PageId});
    EXPECT_EQ(factory.GetSearchKeywords(PageId), QStringList());
}

TEST_F(PlatformAutoRunSettingFactoryTest, OtherFunctionsSayNothingAboutThisOne)
{
    functions.SetFunctions({{7, TLFunctionInfo(true, true)}, {9, TLFunctionInfo(true, true)}});
    EXPECT_EQ(factory.GetSettingWidgetIds(), QList<SettingWidgetId>());
    EXPECT_EQ(factory.GetSearchKeywords(PageId), QStringList());
}

TEST_F(PlatformAutoRunSettingFactoryTest, WithoutSwitchesOrWithAnotherObjectThereIsNoPage)
{
    QObject stranger;
    for (QObject* const object : {static_cast<QObject*>(nullptr), &stranger}) {
        routes.SetRouteObject(AutoRunRouterUrls::FunctionsObject(), object);
        EXPECT_EQ(factory.GetSettingWidgetIds(), QList<SettingWidgetId>());
        EXPECT_EQ(factory.GetSearchKeywords(PageId), QStringList());
    }
}

TEST_F(PlatformAutoRunSettingFactoryTest, EveryCallAsksForTheSwitchAnew)
{
    SetFunction(true, false);
    EXPECT_TRUE(factory.GetSettingWidgetIds().isEmpty());
    SetFunction(true, true);
    EXPECT_FALSE(factory.GetSettingWidgetIds().isEmpty());
}

TEST_F(PlatformAutoRunSettingFactoryTest, PageIsMadeAnewWithoutAParentForItsIdOnly)
{
    const std::unique_ptr<SettingItemBaseWidget> page(factory.CreateSettingWidget(PageId));
    const std::unique_ptr<SettingItemBaseWidget> second(factory.CreateSettingWidget(PageId));
    ASSERT_NE(qobject_cast<AutoRunSettingWidget*>(page.get()), nullptr);
    EXPECT_EQ(page->parent(), nullptr);
    EXPECT_NE(page, second);
    for (const SettingWidgetId id :
         {SettingWidgetId(), SettingWidgetId(10, 61), SettingWidgetId(11, 60), SettingWidgetId(60, 10)}) {
        EXPECT_EQ(factory.CreateSettingWidget(id), nullptr);
        EXPECT_EQ(factory.GetSearchKeywords(id), QStringList());
    }
}

TEST_F(PlatformAutoRunSettingFactoryTest, WithoutAConfigurationTheWordsAreTheCaptions)
{
    EXPECT_EQ(factory.GetSearchKeywords(PageId), Captions);
}

TEST_F(PlatformAutoRunSettingFactoryTest, NamesOfSystemEntriesAndAppsAndAddressesOfCustomOnesFollow)
{
    ReadConfiguration(R"({"name":"Today","url":"https://a/"},{"name":"News","url":"https://b/"})",
                      R"({"name":"Mine","url":"https://c/"},{"name":"","url":"https://d/"})",
                      R"({"name":"Orders","url":"orders"})");
    const QStringList words{QStringLiteral("Today"), QStringLiteral("News"), QStringLiteral("Orders"),
                            QStringLiteral("https://c/"), QStringLiteral("https://d/")};
    EXPECT_EQ(factory.GetSearchKeywords(PageId), Captions + words);
}

TEST_F(PlatformAutoRunSettingFactoryTest, EmptyAddressesAndNamesGiveNoWord)
{
    ReadConfiguration(R"({"name":"","url":"https://a/"})", R"({"name":"Mine","url":""})",
                      R"({"name":"","url":"orders"},{"name":"Chat","url":"chat"})");
    EXPECT_EQ(factory.GetSearchKeywords(PageId), Captions + QStringList{QStringLiteral("Chat")});
}

TEST_F(PlatformAutoRunSettingFactoryTest, WordsThatOccurTwiceStayTwice)
{
    ReadConfiguration(R"({"name":"Homepage"})", R"({"url":"Orders"})", R"({"name":"Orders"})");
    const QStringList words{QStringLiteral("Homepage"), QStringLiteral("Orders"), QStringLiteral("Orders")};
    EXPECT_EQ(factory.GetSearchKeywords(PageId), Captions + words);
}

TEST_F(PlatformAutoRunSettingFactoryTest, CaptionsAreInTheLanguageOfTheUserInterface)
{
    QTranslator chinese;
    ASSERT_TRUE(chinese.load(QStringLiteral(TL_AUTORUN_TRANSLATION)));
    ASSERT_TRUE(QCoreApplication::installTranslator(&chinese));
    const QStringList translated{QStringLiteral("首页"), QStringLiteral("设置启动时打开的网址"),
                                 QStringLiteral("+ 自定义网址"), QStringLiteral("设置启动时打开的应用"),
                                 QStringLiteral("+ 添加应用")};
    EXPECT_EQ(factory.GetSearchKeywords(PageId), translated);
    QCoreApplication::removeTranslator(&chinese);
}

TEST_F(PlatformAutoRunSettingFactoryTest, GroupOfItsOwnThereIsNone)
{
    const SettingGroup group = factory.GetSettingGroup();
    EXPECT_EQ(group.id, 0);
    EXPECT_EQ(group.order, 0);
}

TEST_F(PlatformAutoRunSettingFactoryTest, InterfaceStandsInSlotOrder)
{
    EXPECT_EQ(SlotOf(&ISysSettingFactory::GetSettingGroup), 1);
    EXPECT_EQ(SlotOf(&ISysSettingFactory::GetSettingWidgetIds), 2);
    EXPECT_EQ(SlotOf(&ISysSettingFactory::CreateSettingWidget), 3);
    EXPECT_EQ(SlotOf(&ISysSettingFactory::GetSearchKeywords), 4);
    const PlainFactory plain;
    // Places are one more than slots: the destructor takes two.
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<ISysSettingFactory>(factory, 6),
                                          VTablePlaces::Read<ISysSettingFactory>(plain, 6)),
                ElementsAre(0, 1, 3, 4, 5));
}

TEST_F(PlatformAutoRunSettingFactoryTest, IsFirstAQObjectThenTheInterfaceThenOneSharedPointer)
{
    auto* const begin = reinterpret_cast<char*>(&factory);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<QObject*>(&factory)), begin);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<ISysSettingFactory*>(&factory)), begin + sizeof(QObject));
    EXPECT_EQ(sizeof(factory),
              sizeof(QObject) + sizeof(ISysSettingFactory) + sizeof(QSharedPointer<QObject>));
    const QMetaObject& metaObject = PlatformAutoRunSettingFactory::staticMetaObject;
    EXPECT_EQ(metaObject.superClass(), &QObject::staticMetaObject);
    EXPECT_EQ(metaObject.methodCount(), metaObject.methodOffset());
    EXPECT_EQ(metaObject.propertyCount(), metaObject.propertyOffset());
}
