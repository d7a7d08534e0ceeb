#include "VTablePlaces.h"

#include "ui/AutoRunAddWidget.h"
#include "ui/AutoRunCustomItem.h"
#include "ui/AutoRunHomeItem.h"
#include "ui/AutoRunOperateWidget.h"
#include "ui/AutoRunPluginAddWidget.h"
#include "ui/AutoRunPluginCombo.h"
#include "ui/AutoRunPluginItem.h"
#include "ui/AutoRunSystemItem.h"

#include <QtCore/QMetaMethod>

#include <gmock/gmock.h>

#include <algorithm>

using ::testing::ElementsAreArray;
using VTablePlaces::DestructorPlaces;
using VTablePlaces::PlaceOf;

namespace {

constexpr int MetaObjectPlaces = 3;
constexpr int OwnPlaces = MetaObjectPlaces + DestructorPlaces; // in which every class differs

struct WidgetOperations : QWidget
{
    using QWidget::enterEvent;
    using QWidget::leaveEvent;
    using QWidget::resizeEvent;
};

/// The places in which every class differs, and these.
std::vector<int> With(std::vector<int> places)
{
    for (int i = OwnPlaces - 1; i >= 0; --i) {
        places.insert(places.begin(), i);
    }
    std::sort(places.begin(), places.end());
    return places;
}

template <class Class>
std::vector<const void*> Table(const Class& object, int count)
{
    return VTablePlaces::Read<Class>(object, count);
}

/// The class's own signals and slots as they were declared.
QStringList DeclaredMethods(const QMetaObject& object, QMetaMethod::MethodType type)
{
    QStringList methods;
    for (int i = object.methodOffset(); i < object.methodCount(); ++i) {
        const QMetaMethod method = object.method(i);
        if (method.methodType() == type) {
            methods.append(QString::fromLatin1(method.typeName()) + QLatin1Char(' ') +
                           QString::fromLatin1(method.methodSignature()));
        }
    }
    return methods;
}

QStringList List(std::initializer_list<const char*> texts)
{
    QStringList list;
    for (const char* text : texts) {
        list.append(QLatin1String(text));
    }
    return list;
}

const int LastPlaceOfRow = PlaceOf(&AutoRunBaseItem::GetIconWidget);

} // namespace

TEST(AutoRunUiSlotsTest, RowAddsItsOperationsInSlotOrderAfterThoseOfASettingsItem)
{
    const int first = PlaceOf(&SettingItemBaseWidget::SetKeyword);
    EXPECT_EQ(PlaceOf(&AutoRunBaseItem::SetKeyword), first);
    EXPECT_EQ(PlaceOf(&AutoRunBaseItem::SaveData), first + 1);
    EXPECT_EQ(PlaceOf(&AutoRunBaseItem::GetItemKind), first + 2);
    EXPECT_EQ(PlaceOf(&AutoRunBaseItem::IsCheckLocked), first + 3);
    EXPECT_EQ(PlaceOf(&AutoRunBaseItem::GetShowText), first + 4);
    EXPECT_EQ(PlaceOf(&AutoRunBaseItem::GetOperateWidget), first + 5);
    EXPECT_EQ(PlaceOf(&AutoRunBaseItem::GetIconWidget), first + 6);
}

TEST(AutoRunUiSlotsTest, RowOverridesFourEventHandlersAndTheKeyword)
{
    const AutoRunBaseItem row;
    const SettingItemBaseWidget plain;
    const int count = PlaceOf(&SettingItemBaseWidget::SaveData) + 1;
    EXPECT_THAT(VTablePlaces::Differences(Table<SettingItemBaseWidget>(row, count), Table(plain, count)),
                ElementsAreArray(
                    With({PlaceOf(&QObject::eventFilter), PlaceOf(&WidgetOperations::enterEvent),
                          PlaceOf(&WidgetOperations::leaveEvent), PlaceOf(&WidgetOperations::resizeEvent),
                          PlaceOf(&SettingItemBaseWidget::SetKeyword)})));
}

TEST(AutoRunUiSlotsTest, KindsOfRowsAnswerTheirQuestionsAndOverrideNothingElse)
{
    const int kind = PlaceOf(&AutoRunBaseItem::GetItemKind);
    const int locked = PlaceOf(&AutoRunBaseItem::IsCheckLocked);
    const int text = PlaceOf(&AutoRunBaseItem::GetShowText);
    const int operate = PlaceOf(&AutoRunBaseItem::GetOperateWidget);
    const int icon = PlaceOf(&AutoRunBaseItem::GetIconWidget);
    const AutoRunBaseItem base;
    const AutoRunHomeItem home;
    const AutoRunSystemItem system;
    const AutoRunCustomItem custom;
    const AutoRunPluginItem plugin;
    const auto differences = [&base](const AutoRunBaseItem& row) {
        return VTablePlaces::Differences(Table(row, LastPlaceOfRow + 1), Table(base, LastPlaceOfRow + 1));
    };
    EXPECT_THAT(differences(home), ElementsAreArray(With({kind, locked})));
    EXPECT_THAT(differences(system), ElementsAreArray(With({kind})));
    EXPECT_THAT(differences(custom), ElementsAreArray(With({kind, text, operate})));
    EXPECT_THAT(differences(plugin), ElementsAreArray(With({kind, operate, icon})));
}

TEST(AutoRunUiSlotsTest, RowsAreSettingsItemsFirstThenDpiAdapters)
{
    AutoRunBaseItem row;
    auto* const begin = reinterpret_cast<char*>(&row);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<QWidget*>(&row)), begin);
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<IDpiAdapter*>(&row)),
              begin + sizeof(SettingItemBaseWidget));
    AutoRunOperateWidget operate;
    EXPECT_EQ(reinterpret_cast<char*>(static_cast<IDpiAdapter*>(&operate)),
              reinterpret_cast<char*>(&operate) + sizeof(TLBaseWidget));
}

TEST(AutoRunUiSlotsTest, SignalsAndSlotsOfRowsStandInTheirOrder)
{
    const QMetaObject& row = AutoRunBaseItem::staticMetaObject;
    EXPECT_EQ(DeclaredMethods(row, QMetaMethod::Signal),
              List({"void SigEditItem(AutoRunBaseItem*)", "void SigDeleteItem(AutoRunBaseItem*)",
                    "void SigActiveItem(AutoRunBaseItem*)", "void SigCheckItem(AutoRunBaseItem*)"}));
    EXPECT_EQ(DeclaredMethods(row, QMetaMethod::Slot),
              List({"void SlotActiveBtnClicked()", "void SlotCheckChanged()"}));
    for (int i = row.methodOffset(); i < row.methodOffset() + 4; ++i) {
        EXPECT_EQ(row.method(i).parameterNames(), QList<QByteArray>{"pItemWidget"});
        EXPECT_EQ(row.method(i).parameterType(0), qMetaTypeId<AutoRunBaseItem*>());
    }
    EXPECT_EQ(DeclaredMethods(AutoRunCustomItem::staticMetaObject, QMetaMethod::Slot),
              List({"void SlotEdit()", "void SlotDelete()"}));
    EXPECT_EQ(DeclaredMethods(AutoRunPluginItem::staticMetaObject, QMetaMethod::Slot),
              List({"void SlotEdit()", "void SlotDelete()", "QString GetIconUrl()"}));
    EXPECT_EQ(DeclaredMethods(AutoRunOperateWidget::staticMetaObject, QMetaMethod::Signal),
              List({"void SigEdit()", "void SigDelete()"}));
}

TEST(AutoRunUiSlotsTest, UrlDialogAddsTwoOperationsAfterThoseOfTheDialog)
{
    const int first = PlaceOf(&QDialog::reject) + 1;
    EXPECT_EQ(PlaceOf(&AutoRunEditWidget::GetTitleText), first);
    EXPECT_EQ(PlaceOf(&AutoRunEditWidget::GetPlaceholderText), first + 1);

    const AutoRunEditWidget edit;
    const AutoRunAddWidget add;
    const TLBaseDialog plain;
    EXPECT_THAT(VTablePlaces::Differences(Table<TLBaseDialog>(edit, first), Table(plain, first)),
                ElementsAreArray(With({})));
    EXPECT_THAT(VTablePlaces::Differences(Table<AutoRunEditWidget>(add, first + 2), Table(edit, first + 2)),
                ElementsAreArray(With({first})));
}

TEST(AutoRunUiSlotsTest, AppDialogAddsOneOperationAfterThoseOfTheDialog)
{
    const int first = PlaceOf(&QDialog::reject) + 1;
    EXPECT_EQ(PlaceOf(&AutoRunPluginEditWidget::GetTitleText), first);

    const AutoRunPluginEditWidget edit;
    const AutoRunPluginAddWidget add;
    const TLBaseDialog plain;
    EXPECT_THAT(VTablePlaces::Differences(Table<TLBaseDialog>(edit, first), Table(plain, first)),
                ElementsAreArray(With({})));
    EXPECT_THAT(
        VTablePlaces::Differences(Table<AutoRunPluginEditWidget>(add, first + 1), Table(edit, first + 1)),
        ElementsAreArray(With({first})));
}

TEST(AutoRunUiSlotsTest, ListOfAppsIsAComboBoxAndNothingElse)
{
    const int count = PlaceOf(&TLComboBox::showPopup) + 1;
    const AutoRunPluginCombo combo;
    const TLComboBox plain;
    EXPECT_THAT(VTablePlaces::Differences(Table<TLComboBox>(combo, count), Table(plain, count)),
                ElementsAreArray(With({})));
    EXPECT_EQ(sizeof(AutoRunPluginCombo), sizeof(TLComboBox)) << "it has no fields of its own";
    EXPECT_EQ(combo.GetBusiness(), 1);
}

TEST(AutoRunUiSlotsTest, SlotsOfDialogsStandInTheirOrder)
{
    const QMetaObject& url = AutoRunEditWidget::staticMetaObject;
    EXPECT_EQ(
        DeclaredMethods(url, QMetaMethod::Slot),
        List({"void SlotOkBtnClicked()", "void SlotCancelBtnClicked()", "void SlotTextChanged(QString)"}));
    EXPECT_EQ(DeclaredMethods(url, QMetaMethod::Signal), QStringList());
    EXPECT_EQ(url.method(url.methodCount() - 1).parameterNames(), QList<QByteArray>{"text"});

    const QMetaObject& app = AutoRunPluginEditWidget::staticMetaObject;
    EXPECT_EQ(DeclaredMethods(app, QMetaMethod::Slot),
              List({"void SlotOkBtnClicked()", "void SlotCancelBtnClicked()",
                    "void SlotRequestImageFinished(bool,QString,QString)"}));
    EXPECT_EQ(DeclaredMethods(app, QMetaMethod::Signal), QStringList());
    const QList<QByteArray> names{"bSucceed", "strUrl", "strLocal"};
    EXPECT_EQ(app.method(app.methodCount() - 1).parameterNames(), names);
}
