#include "PlatformAutoRun.h"

#include "AutoRunTest.h"

#include "QueuedEvents.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>

#include <gtest/gtest.h>

#include <memory>

namespace {

class PlatformAutoRunTest : public AutoRunTest
{
protected:
    void Open()
    {
        PlatformAutoRun::Instance()->OpenUrlList();
        RunQueuedEvents();
    }
};

QStringList Calls(std::initializer_list<const char*> calls)
{
    QStringList list;
    for (const char* call : calls) {
        list.append(QLatin1String(call));
    }
    return list;
}

const char* const CheckedA = R"({"url":"https://a/","checked":true})";
const char* const CheckedB = R"({"url":"https://b/","checked":true})";
const char* const CheckedActiveA = R"({"url":"https://a/","checked":true,"activeItem":true})";
const char* const CheckedActiveB = R"({"url":"https://b/","checked":true,"activeItem":true})";
const char* const UncheckedActive = R"({"url":"https://u/","checked":false,"activeItem":true})";
const char* const Unchecked = R"({"url":"https://u/","checked":false})";

QByteArray Join(std::initializer_list<const char*> entries)
{
    QByteArrayList list;
    for (const char* entry : entries) {
        list.append(entry);
    }
    return list.join(',');
}

} // namespace

TEST_F(PlatformAutoRunTest, DeclaresOnePrivateSlotAndNothingElse)
{
    const QMetaObject& metaObject = PlatformAutoRun::staticMetaObject;
    ASSERT_EQ(metaObject.methodCount() - metaObject.methodOffset(), 1);
    const QMetaMethod method = metaObject.method(metaObject.methodOffset());
    EXPECT_EQ(method.methodSignature(), QByteArray("SlotOpenUrlList()"));
    EXPECT_EQ(method.methodType(), QMetaMethod::Slot);
    EXPECT_EQ(method.access(), QMetaMethod::Private);
    EXPECT_EQ(method.returnType(), int(QMetaType::Void));
    EXPECT_EQ(metaObject.propertyCount(), metaObject.propertyOffset());
}

TEST_F(PlatformAutoRunTest, NothingOpensInsideTheCall)
{
    ReadConfiguration(CheckedA);
    PlatformAutoRun::Instance()->OpenUrlList();
    EXPECT_EQ(browser.GetCalls(), QStringList());
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/"}));
}

TEST_F(PlatformAutoRunTest, BrowserWithOneTabAndTheFirstEntryActiveSelectsTab1)
{
    ReadConfiguration(Join({CheckedActiveA, CheckedB}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://b/", "select 1"}));
}

TEST_F(PlatformAutoRunTest, SecondEntryActiveSelectsTab2)
{
    ReadConfiguration(Join({CheckedA, CheckedActiveB}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://b/", "select 2"}));
}

TEST_F(PlatformAutoRunTest, PositionsCountFromTheTabsThatStandAlready)
{
    browser.AddTab({}, QString());
    browser.AddTab({}, QString());
    ReadConfiguration(Join({CheckedA, CheckedActiveB}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://b/", "select 4"}));
}

TEST_F(PlatformAutoRunTest, BrowserWithoutTabsAndTheActiveEntryFirstSelectsNothing)
{
    FakeBrowser empty(0);
    const Provided<IBrowserMain> browserWithoutTabs(&empty);
    const Provided<ITabOpener> itsOpener(&empty);
    ReadConfiguration(Join({CheckedActiveA, CheckedB}));
    Open();
    EXPECT_EQ(empty.GetCalls(), Calls({"url https://a/", "url https://b/"}));
}

TEST_F(PlatformAutoRunTest, BrowserWithoutTabsAndTheActiveEntrySecondSelectsTab1)
{
    FakeBrowser empty(0);
    const Provided<IBrowserMain> browserWithoutTabs(&empty);
    const Provided<ITabOpener> itsOpener(&empty);
    ReadConfiguration(Join({CheckedA, CheckedActiveB}));
    Open();
    EXPECT_EQ(empty.GetCalls(), Calls({"url https://a/", "url https://b/", "select 1"}));
}

TEST_F(PlatformAutoRunTest, UncheckedActiveEntryIsNeitherOpenedNorSelected)
{
    ReadConfiguration(Join({CheckedA, UncheckedActive, CheckedB}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://b/"}));
}

TEST_F(PlatformAutoRunTest, UncheckedActiveEntryLeavesAnEarlierChoice)
{
    ReadConfiguration(Join({CheckedActiveA, UncheckedActive, CheckedB}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://b/", "select 1"}));
}

TEST_F(PlatformAutoRunTest, UncheckedEntryDoesNotCountAsAPosition)
{
    ReadConfiguration(Join({Unchecked, CheckedActiveA}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "select 1"}));
}

TEST_F(PlatformAutoRunTest, OfTwoCheckedActiveEntriesTheLaterIsSelected)
{
    ReadConfiguration(Join({CheckedActiveA, CheckedActiveB}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://b/", "select 2"}));
}

TEST_F(PlatformAutoRunTest, NoActiveEntrySelectsNothing)
{
    ReadConfiguration(Join({CheckedA, CheckedB}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://b/"}));
}

TEST_F(PlatformAutoRunTest, OpensSystemEntriesThenWebAddressesThenApps)
{
    ReadConfiguration(R"({"url":"https://s1/","checked":true},{"url":"https://s2/","checked":true})",
                      R"({"url":"https://c1/","checked":true})",
                      R"({"url":"stock","checked":true,"type":1,"activeItem":true})");
    Open();
    EXPECT_EQ(browser.GetCalls(),
              Calls({"url https://s1/", "url https://s2/", "url https://c1/", "plugin stock", "select 4"}));
}

TEST_F(PlatformAutoRunTest, TypeDecidesWhatOpensNotTheList)
{
    ReadConfiguration(
        R"({"url":"stock","checked":true,"type":1},{"url":"https://x/","checked":true,"type":7})",
        QByteArray(), R"({"url":"https://p/","checked":true,"type":0})");
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"plugin stock", "url https://x/", "url https://p/"}));
}

TEST_F(PlatformAutoRunTest, AppIsOpenedWithExactlyTheseValues)
{
    ReadConfiguration(QByteArray(), QByteArray(),
                      R"({"name":"Stock","url":"stock","checked":true,"type":1})");
    Open();
    ASSERT_EQ(browser.GetOpenedPlugins().size(), 1);
    const FakeBrowser::OpenedPlugin opened = browser.GetOpenedPlugins().first();
    EXPECT_EQ(opened.index, -1);
    EXPECT_EQ(opened.info.activation, QStringLiteral("0"));
    EXPECT_EQ(opened.info.source, QStringLiteral("Workstation_Autorun"));
    EXPECT_EQ(opened.info.serviceCode, QStringLiteral("stock"));
    EXPECT_EQ(opened.info.title, QString());
    EXPECT_EQ(opened.info.iconUrl, QString());
    EXPECT_FALSE(opened.info.isDelay);
}

TEST_F(PlatformAutoRunTest, WebAddressIsOpenedWithExactlyTheseValues)
{
    ReadConfiguration(R"({"name":"Orders","url":"https://a/?x=1&y=2","checked":true})");
    Open();
    ASSERT_EQ(browser.GetOpenedUrls().size(), 1);
    const FakeBrowser::OpenedUrl opened = browser.GetOpenedUrls().first();
    EXPECT_EQ(opened.index, -1);
    EXPECT_EQ(opened.info.address, QStringLiteral("https://a/?x=1&y=2"));
    EXPECT_TRUE(opened.info.closable);
    EXPECT_FALSE(opened.info.isDelay);
    EXPECT_FALSE(opened.info.activate);
    EXPECT_EQ(opened.info.title, QString());
    EXPECT_TRUE(opened.info.remember);
}

TEST_F(PlatformAutoRunTest, SecondCallAfterASuccessfulOpenOpensNothingTwice)
{
    ReadConfiguration(CheckedActiveA);
    Open();
    const QStringList once = browser.GetCalls();
    Open();
    EXPECT_EQ(browser.GetCalls(), once);
    EXPECT_EQ(once, Calls({"url https://a/", "select 1"}));
}

TEST_F(PlatformAutoRunTest, TwoQueuedAttemptsOpenOnce)
{
    ReadConfiguration(CheckedA);
    PlatformAutoRun::Instance()->OpenUrlList();
    PlatformAutoRun::Instance()->OpenUrlList();
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/"}));
}

TEST_F(PlatformAutoRunTest, FirstCallWithoutAConfigurationLeavesTheSecondOneEverything)
{
    Open();
    EXPECT_EQ(browser.GetCalls(), QStringList());
    ReadConfiguration(Join({CheckedActiveA, CheckedB}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://b/", "select 1"}));
}

TEST_F(PlatformAutoRunTest, ConfigurationWithoutEntriesLeavesTheNextCallEverything)
{
    ReadConfiguration(QByteArray());
    Open();
    ReadConfiguration(CheckedA);
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/"}));
}

TEST_F(PlatformAutoRunTest, ListWithNothingCheckedCountsAsOpened)
{
    ReadConfiguration(Unchecked);
    Open();
    ReadConfiguration(CheckedA);
    Open();
    EXPECT_EQ(browser.GetCalls(), QStringList());
}

TEST_F(PlatformAutoRunTest, WithoutABrowserTheNextCallOpens)
{
    ReadConfiguration(CheckedA);
    {
        const Provided<IBrowserMain> noBrowser(nullptr);
        Open();
    }
    EXPECT_EQ(browser.GetCalls(), QStringList());
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/"}));
}

TEST_F(PlatformAutoRunTest, EntriesOutliveAReplacementOfTheConfigurationWhileTheyOpen)
{
    // A browser in which the first opening brings in a new configuration, dropping the old entries.
    class ReplacingOpener final : public ITabOpener
    {
    public:
        explicit ReplacingOpener(FakeBrowser* browser, std::function<void()> replace)
            : m_browser(browser), m_replace(std::move(replace))
        {}
        void OpenPlugin(const PluginOpenInfo& info, int index) override
        {
            m_browser->OpenPlugin(info, index);
        }
        void OpenUrl(const TabOpenInfo& info, int index) override
        {
            m_replace();
            m_browser->OpenUrl(info, index);
        }

    private:
        FakeBrowser* m_browser;
        std::function<void()> m_replace;
    };
    ReplacingOpener opener(&browser, [this] { ReadConfiguration(QByteArray()); });
    const Provided<ITabOpener> replacing(&opener);

    ReadConfiguration(Join({CheckedActiveA, CheckedB}));
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://b/", "select 1"}));
}

TEST_F(PlatformAutoRunTest, ReleaseDropsWhatIsQueuedAndTheNextObjectOpensAfresh)
{
    ReadConfiguration(CheckedA);
    PlatformAutoRun::Instance()->OpenUrlList();
    const QPointer<PlatformAutoRun> opener = PlatformAutoRun::Instance();
    PlatformAutoRun::ReleaseInstance();
    EXPECT_TRUE(opener.isNull());
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList());

    Open();
    PlatformAutoRun::ReleaseInstance();
    PlatformAutoRun::ReleaseInstance();
    Open();
    EXPECT_EQ(browser.GetCalls(), Calls({"url https://a/", "url https://a/"}));
}
