#include "VTablePlaces.h"

#include "AutoRunUiTest.h"
#include "ui/AutoRunSettingWidget.h"

#include "frame-core/ISysSettingFactory.h"

#include <QtCore/QMetaMethod>

#include <gmock/gmock.h>

#include <algorithm>

using ::testing::ElementsAreArray;
using VTablePlaces::PlaceOf;

namespace {

// It needs a client around it, for its read.
using AutoRunSettingSlotsTest = AutoRunUiTest;

} // namespace

TEST_F(AutoRunSettingSlotsTest, PageOverridesTheEventFilterAndTheKeywordOfASettingsItem)
{
    const AutoRunSettingWidget page;
    const SettingItemBaseWidget plain;
    const int count = PlaceOf(&SettingItemBaseWidget::SaveData) + 1;
    // First what every class has of its own: the meta-object's three and the destructor's two.
    std::vector<int> expected{
        0, 1, 2, 3, 4, PlaceOf(&QObject::eventFilter), PlaceOf(&SettingItemBaseWidget::SetKeyword)};
    std::sort(expected.begin(), expected.end());
    EXPECT_THAT(VTablePlaces::Differences(VTablePlaces::Read<SettingItemBaseWidget>(page, count),
                                          VTablePlaces::Read<SettingItemBaseWidget>(plain, count)),
                ElementsAreArray(expected));
}

TEST_F(AutoRunSettingSlotsTest, PageIsASettingsItemFirstThenAnObserverThenADpiAdapter)
{
    AutoRunSettingWidget page;
    auto* const begin = reinterpret_cast<char*>(&page);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<SettingItemBaseWidget*>(&page)), begin);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<HttpObserverBase*>(&page)),
              begin + sizeof(SettingItemBaseWidget));
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<IDpiAdapter*>(&page)),
              begin + sizeof(SettingItemBaseWidget) + sizeof(HttpObserverBase));
}

TEST_F(AutoRunSettingSlotsTest, PageCastsToItsBasesByName)
{
    AutoRunSettingWidget page;
    EXPECT_EQ(page.qt_metacast("AutoRunSettingWidget"), static_cast<void*>(&page));
    EXPECT_EQ(page.qt_metacast("HttpObserverBase"), static_cast<HttpObserverBase*>(&page));
    EXPECT_EQ(page.qt_metacast("IDpiAdapter"), static_cast<IDpiAdapter*>(&page));
    EXPECT_EQ(page.qt_metacast("SettingItemBaseWidget"), static_cast<SettingItemBaseWidget*>(&page));
    EXPECT_EQ(page.qt_metacast("QWidget"), static_cast<QWidget*>(&page));
    EXPECT_EQ(page.qt_metacast("IRouteInterceptor"), nullptr);
}

TEST_F(AutoRunSettingSlotsTest, PageDeclaresItsSlotsInTheirOrderAndNothingElse)
{
    const QMetaObject& page = AutoRunSettingWidget::staticMetaObject;
    EXPECT_EQ(page.superClass(), &SettingItemBaseWidget::staticMetaObject);
    EXPECT_EQ(page.propertyCount(), page.propertyOffset());
    const QList<QByteArray> expected{"SlotRefresh()",
                                     "SlotAddBtnClicked()",
                                     "SlotAddPluginBtnClicked()",
                                     "SlotEditBtnClicked(AutoRunBaseItem*)",
                                     "SlotDeleteBtnClicked(AutoRunBaseItem*)",
                                     "SlotActiveBtnClicked(AutoRunBaseItem*)",
                                     "SlotCheckBtnClicked(AutoRunBaseItem*)"};
    QList<QByteArray> declared;
    for (int i = page.methodOffset(); i < page.methodCount(); ++i) {
        const QMetaMethod method = page.method(i);
        EXPECT_EQ(method.methodType(), QMetaMethod::Slot);
        EXPECT_EQ(method.access(), QMetaMethod::Private);
        EXPECT_EQ(method.returnType(), QMetaType::Void);
        declared.append(method.methodSignature());
        if (method.parameterCount() == 1) {
            EXPECT_EQ(method.parameterNames(), QList<QByteArray>{"pItemWidget"});
            EXPECT_EQ(method.parameterType(0), qMetaTypeId<AutoRunBaseItem*>());
        }
    }
    EXPECT_EQ(declared, expected);
    EXPECT_NE(QMetaType::type("AutoRunBaseItem*"), QMetaType::UnknownType);
}

TEST_F(AutoRunSettingSlotsTest, PageIsMadeWithTheOneWindowFlag)
{
    QWidget parent;
    const QWidget plain(&parent, Qt::WindowCloseButtonHint); // Qt adds flags of its own
    const AutoRunSettingWidget page(&parent);
    EXPECT_EQ(page.parentWidget(), &parent);
    EXPECT_EQ(page.windowFlags(), plain.windowFlags());
    EXPECT_FALSE(page.isWindow());
}
