#include "TLRestartManager.h"

#include "TabRecordTest.h"

#include "TLRestartRecord.h"

#include "core/TLGlobalData.h"

#include <QtCore/QByteArray>

#include <gtest/gtest.h>

namespace {

class TLRestartManagerTest : public TabRecordTest
{
protected:
    TLRestartRecord GetStored() const { return TLRestartRecord::FromText(GetRestartText()); }

    void Store(const QStringList& routerUrls, const QString& belongType)
    {
        TLRestartRecord record;
        record.routerUrls = routerUrls;
        record.belongType = belongType;
        SetRestartText(record.ToText());
    }

    TLRestartManager* manager = TLRestartManager::Instance();
    const QStringList twoUrls{QStringLiteral("tl://browser/open?url=https%3A%2F%2Fa%2F"),
                              QStringLiteral("tl://plugin/open?code=stock")};
};

} // namespace

TEST_F(TLRestartManagerTest, DeclaresNoSignalSlotOrPropertyAndHasNoParent)
{
    const QMetaObject& metaObject = TLRestartManager::staticMetaObject;
    EXPECT_STREQ(metaObject.className(), "TLRestartManager");
    EXPECT_EQ(metaObject.superClass(), &QObject::staticMetaObject);
    EXPECT_EQ(metaObject.methodCount(), metaObject.methodOffset());
    EXPECT_EQ(metaObject.propertyCount(), metaObject.propertyOffset());
    EXPECT_EQ(manager->parent(), nullptr);
    EXPECT_EQ(TLRestartManager::Instance(), manager);
}

TEST_F(TLRestartManagerTest, SaveWithoutIgnoredUrlKeepsEveryNonEmptyRouterUrlFromTheSecondTabOnInTabOrder)
{
    AddTab(3, QStringLiteral("tl://z"));
    AddTab(5, QString());
    AddTabWithoutData(QStringLiteral("tl://b"));
    AddTab(4, QStringLiteral("tl://a"));
    AddTab(3, QStringLiteral("tl://z"));
    manager->Save(QString());
    const QStringList expected{QStringLiteral("tl://z"), QStringLiteral("tl://b"), QStringLiteral("tl://a"),
                               QStringLiteral("tl://z")};
    EXPECT_EQ(GetStored().routerUrls, expected);
    EXPECT_EQ(GetStored().belongType, QStringLiteral("merchant"));
}

TEST_F(TLRestartManagerTest, SaveNeverKeepsTheFirstTab)
{
    FakeBrowser other(0);
    other.AddTab({}, QStringLiteral("tl://home"));
    other.AddTab({}, QStringLiteral("tl://second"));
    const Provided<IBrowserMain> provided(&other);
    manager->Save(QString());
    EXPECT_EQ(GetStored().routerUrls, QStringList{QStringLiteral("tl://second")});
}

TEST_F(TLRestartManagerTest, SaveLeavesOutTheIgnoredTabWhateverItsLettersCase)
{
    AddTab(3, QStringLiteral("tl://browser/open?url=A"));
    AddTab(3, QStringLiteral("TL://Browser/Open?url=a"));
    AddTab(3, QStringLiteral("tl://browser/open?url=ab"));
    AddTab(3, QStringLiteral("tl://browser/open?url="));
    manager->Save(QStringLiteral("tl://browser/OPEN?URL=a"));
    const QStringList expected{QStringLiteral("tl://browser/open?url=ab"),
                               QStringLiteral("tl://browser/open?url=")};
    EXPECT_EQ(GetStored().routerUrls, expected);
}

TEST_F(TLRestartManagerTest, SaveWithOneTabStoresTheEmptyText)
{
    Store(twoUrls, QStringLiteral("merchant"));
    manager->Save(QString());
    EXPECT_EQ(GetRestartText(), QString());
}

TEST_F(TLRestartManagerTest, SaveStoresTheEmptyTextWhenTheIgnoredTabIsTheOnlyOneLeft)
{
    Store(twoUrls, QStringLiteral("merchant"));
    AddTab(3, QStringLiteral("tl://a"));
    AddTab(3, QString());
    manager->Save(QStringLiteral("TL://A"));
    EXPECT_EQ(GetRestartText(), QString());
}

TEST_F(TLRestartManagerTest, SaveWithoutABrowserLeavesTheRecordAsItIs)
{
    Store(twoUrls, QStringLiteral("merchant"));
    const QString before = GetRestartText();
    const Provided<IBrowserMain> noBrowser(nullptr);
    manager->Save(QString());
    EXPECT_EQ(GetRestartText(), before);
}

TEST_F(TLRestartManagerTest, SaveWritesTheStoredFormatByteByByte)
{
    AddTab(3, QStringLiteral("tl://browser/open?url=https%3A%2F%2Forders.example.com%2F"));
    AddTab(4, QStringLiteral("tl://plugin/open?code=stock"));
    AddTab(3, QStringLiteral("tl://browser/open?url=https%3A%2F%2Fhome.example.com%2F%3Fq%3D%E4%B8%AD"));
    AddTab(5, QString::fromUtf8("tl://plugin/open?code=\xE8\xB4\xA6\xE6\x9C\xAC"));
    manager->Save(QString());
    EXPECT_EQ(GetRestartText().toLatin1(), ReadSample("restart-record-v1.txt"));
}

TEST_F(TLRestartManagerTest, RestoreOpensTheUrlsInOrderUnchangedAndClearsTheRecord)
{
    SetRestartText(QString::fromLatin1(ReadSample("restart-record-v1.txt")));
    manager->Restore();
    const QStringList expected{
        QStringLiteral("tl://browser/open?url=https%3A%2F%2Forders.example.com%2F"),
        QStringLiteral("tl://plugin/open?code=stock"),
        QStringLiteral("tl://browser/open?url=https%3A%2F%2Fhome.example.com%2F%3Fq%3D%E4%B8%AD"),
        // The router writes parameters percent-encoded.
        QStringLiteral("tl://plugin/open?code=%E8%B4%A6%E6%9C%AC")};
    EXPECT_EQ(routes.GetExecuted(), expected);
    EXPECT_EQ(GetRestartText(), QString());

    manager->Restore();
    EXPECT_EQ(routes.GetExecuted(), expected) << "the record serves once";
}

TEST_F(TLRestartManagerTest, WhatSaveWroteIsWhatRestoreOpens)
{
    AddTab(3, twoUrls.at(0));
    AddTab(5, twoUrls.at(1));
    manager->Save(QString());
    manager->Restore();
    EXPECT_EQ(routes.GetExecuted(), twoUrls);
}

TEST_F(TLRestartManagerTest, RecordIsClearedBeforeTheFirstTabIsOpened)
{
    class Router final : public IRouteExecutor
    {
    public:
        bool ExecuteRoute(const VXRouterProtocol&) override
        {
            texts.append(GetRestartText());
            return false; // and one that is unknown keeps no other from being opened
        }
        QObject* GetRouteObject(const VXRouterProtocol&) override { return nullptr; }
        QStringList texts;
    } router;
    const Provided<IRouteExecutor> provided(&router);
    Store(twoUrls, QStringLiteral("merchant"));
    manager->Restore();
    const QStringList expected{QString(), QString()};
    EXPECT_EQ(router.texts, expected);
}

TEST_F(TLRestartManagerTest, RestoreWithTheEmptyTextReopensNothingAndLeavesTheEmptyText)
{
    manager->Restore();
    EXPECT_EQ(routes.GetExecuted(), QStringList());
    EXPECT_EQ(GetRestartText(), QString());

    // Nor for a user without a belong type, whom an empty record would match.
    SetBelongTypeOfUser(QString());
    manager->Restore();
    EXPECT_EQ(routes.GetExecuted(), QStringList());
}

TEST_F(TLRestartManagerTest, RecordOfAnotherBelongTypeIsClearedAndNotReplayed)
{
    for (const char* belongType : {"supplier", "Merchant", "merchan", "merchants", ""}) {
        Store(twoUrls, QString::fromLatin1(belongType));
        manager->Restore();
        EXPECT_EQ(routes.GetExecuted(), QStringList()) << belongType;
        EXPECT_EQ(GetRestartText(), QString()) << belongType;
    }
}

TEST_F(TLRestartManagerTest, RecordOfAUserWithoutABelongTypeIsReplayedForOne)
{
    Store(twoUrls, QString());
    SetBelongTypeOfUser(QString(QLatin1String("")));
    manager->Restore();
    EXPECT_EQ(routes.GetExecuted(), twoUrls);
}

TEST_F(TLRestartManagerTest, RecordThatDecodesToNothingIsTreatedLikeAnEmptyOne)
{
    SetRestartText(QStringLiteral("===="));
    manager->Restore();
    EXPECT_EQ(routes.GetExecuted(), QStringList());
    EXPECT_EQ(GetRestartText(), QString());
}

TEST_F(TLRestartManagerTest, TextThatIsNoRecordIsClearedAndReopensNothing)
{
    for (const char* text : {"not base64!", "AAAA", "/////w==", "f////w==", "\xE8\xB4\xA6"}) {
        SetRestartText(QString::fromUtf8(text));
        manager->Restore();
        EXPECT_EQ(routes.GetExecuted(), QStringList()) << text;
        EXPECT_EQ(GetRestartText(), QString()) << text;
    }
}

TEST_F(TLRestartManagerTest, RecordCutAtAnyByteReopensNothing)
{
    const QByteArray sample = QByteArray::fromBase64(ReadSample("restart-record-v1.txt"));
    for (int length = 0; length < sample.size(); ++length) {
        SetRestartText(QString::fromLatin1(sample.left(length).toBase64()));
        manager->Restore();
        EXPECT_EQ(routes.GetExecuted(), QStringList()) << length;
        EXPECT_EQ(GetRestartText(), QString()) << length;
    }
}

TEST_F(TLRestartManagerTest, ClearAndSetValueStoreTheGivenTextWhoeverIsSignedIn)
{
    manager->SetValue(QStringLiteral("any text"));
    EXPECT_EQ(GetRestartText(), QStringLiteral("any text"));
    manager->Clear();
    EXPECT_EQ(GetRestartText(), QString());

    SignOut();
    manager->SetValue(QStringLiteral("nobody's"));
    EXPECT_EQ(GetRestartText(), QStringLiteral("nobody's"));
    manager->Clear();
    EXPECT_EQ(GetRestartText(), QString());
}

TEST_F(TLRestartManagerTest, RecordBelongsToTheSignedInUser)
{
    Store(twoUrls, QStringLiteral("merchant"));
    TLGlobalData::Instance()->SetUser(QStringLiteral("other"), QStringLiteral("merchant"));
    manager->Restore();
    EXPECT_EQ(routes.GetExecuted(), QStringList());
    TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    manager->Restore();
    EXPECT_EQ(routes.GetExecuted(), twoUrls);
}
