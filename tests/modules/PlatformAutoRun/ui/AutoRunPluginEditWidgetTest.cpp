#include "AutoRunUiTest.h"

#include "ui/AutoRunPluginAddWidget.h"
#include "ui/AutoRunPluginCombo.h"
#include "ui/AutoRunPluginEditWidget.h"

#include "AutoRunRouterUrls.h"

#include "base-ui/TLBubbleLabel.h"
#include "base-ui/TLPushButton.h"
#include "base/DpiTool.h"

#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <memory>

namespace {

const QString Prompt = QStringLiteral("Please select app");

class AutoRunPluginEditWidgetTest : public AutoRunUiTest
{
protected:
    AutoRunPluginEditWidgetTest()
    {
        apps->SetPlugins({App(QStringLiteral("Orders"), QStringLiteral("orders"), Icon(1)),
                          App(QStringLiteral("Stock"), QStringLiteral("stock"), Icon(2)),
                          App(QStringLiteral("Hidden"), QStringLiteral("hidden"), Icon(3), 1),
                          App(QStringLiteral("Chat"), QStringLiteral("chat"), Icon(4))});
    }

    /// Addresses of which nothing is on the way: none is a web address.
    static QString Icon(int number) { return QStringLiteral("icon:%1").arg(number); }

    void Open(const AutoRunInfoEntityPtr& entry, const QStringList& excluded = {})
    {
        dialog->setFixedSize(532, 228);
        dialog->SetExcludeKeys(excluded);
        dialog->SetData(entry);
        Show(dialog.get());
    }

    AutoRunPluginCombo* Combo() const { return Find<AutoRunPluginCombo>(*dialog, "content_combo"); }
    TLPushButton* Ok() const { return Find<TLPushButton>(*dialog, "ok_button"); }
    TLPushButton* Cancel() const { return Find<TLPushButton>(*dialog, "cancel_button"); }
    QStringList Offered() const
    {
        QStringList texts;
        for (int i = 0; i < Combo()->count(); ++i) {
            texts.append(Combo()->itemText(i));
        }
        return texts;
    }
    QColor IconColor(int index) const
    {
        const QImage image = Combo()->itemIcon(index).pixmap(16, 16).toImage();
        return image.isNull() ? QColor() : image.pixelColor(image.rect().center());
    }
    QList<TLBubbleLabel*> Bubbles() const { return dialog->findChildren<TLBubbleLabel*>(); }
    QString Message() const
    {
        EXPECT_LE(Bubbles().size(), 1);
        return Bubbles().isEmpty() || !Bubbles().first()->isVisible() ? QString() : Bubbles().first()->text();
    }
    bool IsListOpen() const { return Combo()->view()->isVisible(); }
    /// Opens the list with a key and clicks the app with the mouse.
    void Choose(const QString& name)
    {
        QTest::keyClick(Combo(), Qt::Key_F4);
        QAbstractItemView* const list = Combo()->view();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window()));
        const QModelIndex index = list->model()->index(Combo()->findText(name), 0);
        list->scrollTo(index);
        const QPoint place(20, list->visualRect(index).center().y()); // a row may be wider than the list
        QTest::mouseMove(list->viewport(), place);
        // For a moment the list takes no click, so that the second one of a double click chooses nothing.
        ASSERT_TRUE(QTest::qWaitFor([this, list, place] {
            if (IsListOpen()) {
                QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            }
            return !IsListOpen();
        }));
    }
    void CloseList()
    {
        QTest::keyClick(Combo()->view(), Qt::Key_Escape);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !IsListOpen(); }));
    }

    std::unique_ptr<AutoRunPluginEditWidget> dialog = std::make_unique<AutoRunPluginEditWidget>();
};

const QColor DefaultColor(1, 2, 3); // of the program's picture in this test

} // namespace

TEST_F(AutoRunPluginEditWidgetTest, HasTheNamesAndTextsOfItsForm)
{
    QWidget* const content = dialog->GetContentWidget();
    EXPECT_EQ(content->objectName(), QStringLiteral("AutoRunPluginEditWidget"));
    EXPECT_EQ(content->windowTitle(), QStringLiteral("AutoRunPluginEditWidget"));
    auto* const column = Find<QVBoxLayout>(*dialog, "verticalLayout");
    ASSERT_EQ(content->layout(), column);
    EXPECT_EQ(column->spacing(), 0);
    EXPECT_EQ(MarginsOf(column), QMargins());
    ASSERT_EQ(column->count(), 2);
    EXPECT_EQ(column->itemAt(0)->widget(), Find(*dialog, "content_widget"));
    EXPECT_EQ(column->itemAt(1)->widget(), Find(*dialog, "bottom_widget"));

    auto* const line = Find<QHBoxLayout>(*dialog, "contentWidgetLayout");
    ASSERT_EQ(line->count(), 2);
    EXPECT_EQ(line->itemAt(0)->widget(), Find<QLabel>(*dialog, "content_label"));
    EXPECT_EQ(line->itemAt(1)->widget(), Combo());
    EXPECT_EQ(Combo()->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    EXPECT_EQ(Combo()->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    EXPECT_EQ(Combo()->GetBusiness(), 1);

    auto* const buttons = Find<QHBoxLayout>(*dialog, "btnWidgetLayout");
    ASSERT_EQ(buttons->count(), 4);
    for (const int i : {0, 3}) {
        ASSERT_NE(buttons->itemAt(i)->spacerItem(), nullptr);
        EXPECT_EQ(buttons->itemAt(i)->sizeHint(), QSize(40, 20));
        EXPECT_EQ(buttons->itemAt(i)->expandingDirections(), Qt::Horizontal);
    }
    EXPECT_EQ(buttons->itemAt(1)->widget(), Ok());
    EXPECT_EQ(buttons->itemAt(2)->widget(), Cancel());
    EXPECT_EQ(Ok()->text(), QStringLiteral("OK"));
    EXPECT_EQ(Cancel()->text(), QStringLiteral("Cancel"));
    EXPECT_EQ(Ok()->GetButtonType(), 1);
    EXPECT_EQ(Ok()->m_sizeClass, 1);
    EXPECT_EQ(Cancel()->GetButtonType(), 3);
    EXPECT_EQ(Cancel()->m_sizeClass, 1);
    EXPECT_TRUE((dialog->windowFlags() & Qt::WindowCloseButtonHint) != 0);
    EXPECT_FALSE((dialog->windowFlags() & Qt::WindowContextHelpButtonHint) != 0);
}

TEST_F(AutoRunPluginEditWidgetTest, GivesButtonsTheirTypesAgainWithAnotherTheme)
{
    for (TLPushButton* button : {Ok(), Cancel()}) {
        button->SetButtonType(0);
        button->m_sizeClass = 0;
    }
    dialog->setStyleSheet(QStringLiteral("QLabel { color: red }"));
    EXPECT_EQ(Ok()->GetButtonType(), 1);
    EXPECT_EQ(Ok()->m_sizeClass, 1);
    EXPECT_EQ(Cancel()->GetButtonType(), 3);
    EXPECT_EQ(Cancel()->m_sizeClass, 1);
}

TEST_F(AutoRunPluginEditWidgetTest, MarginsSpacingsAndIconsFollowTheScale)
{
    const auto check = [](const AutoRunPluginEditWidget& edit, int scale) {
        auto* const buttons = Find<QLayout>(edit, "btnWidgetLayout");
        auto* const line = Find<QLayout>(edit, "contentWidgetLayout");
        EXPECT_EQ(MarginsOf(buttons), QMargins(0, 0, 0, 30) * scale);
        EXPECT_EQ(buttons->spacing(), 10 * scale);
        EXPECT_EQ(MarginsOf(line), QMargins(40, 20, 40, 30) * scale);
        EXPECT_EQ(line->spacing(), 10 * scale);
        EXPECT_EQ(Find(edit, "bottom_widget")->minimumHeight(), 66 * scale);
        EXPECT_EQ(Find(edit, "bottom_widget")->maximumHeight(), 66 * scale);
        EXPECT_EQ(Find<QComboBox>(edit, "content_combo")->iconSize(), QSize(16, 16) * scale);
    };
    check(*dialog, 1);
    DpiTool::SetScale(2);
    check(*dialog, 2);
    check(AutoRunPluginEditWidget(), 2);
    DpiTool::SetScale(1);
    check(*dialog, 1);
}

TEST_F(AutoRunPluginEditWidgetTest, OffersThePromptAndTheAppsInTheirOrderWithTheDefaultIcon)
{
    Open(Entry(QString()));
    EXPECT_EQ(Offered(), QStringList({Prompt, QStringLiteral("Orders"), QStringLiteral("Stock"),
                                      QStringLiteral("Chat")}));
    EXPECT_EQ(Combo()->currentIndex(), 0);
    EXPECT_TRUE(Combo()->itemIcon(0).isNull());
    EXPECT_EQ(Combo()->itemData(0, Qt::UserRole).toString(), QString());
    EXPECT_EQ(IconColor(1), DefaultColor);
    EXPECT_EQ(Combo()->itemData(1, Qt::UserRole).toString(), Icon(1));
    EXPECT_EQ(Combo()->itemData(3, Qt::UserRole).toString(), Icon(4));
    EXPECT_EQ(Find<QLabel>(*dialog, "content_label")->text(), QStringLiteral("Edit App"));
}

TEST_F(AutoRunPluginEditWidgetTest, AddingDiffersInItsTitleOnly)
{
    AutoRunPluginAddWidget add;
    add.SetData(Entry(QString()));
    EXPECT_EQ(Find<QLabel>(add, "content_label")->text(), QStringLiteral("Add App"));
    EXPECT_EQ(Find<QComboBox>(add, "content_combo")->count(), 4);
}

TEST_F(AutoRunPluginEditWidgetTest, ChosenAppIsWrittenIntoTheEntryAndAccepted)
{
    const auto entry = Entry(QString());
    Open(entry);
    QTimer::singleShot(0, dialog.get(), [this] {
        Choose(QStringLiteral("Stock"));
        Click(Ok());
        EXPECT_FALSE(dialog->isVisible());
        dialog->hide(); // which ends the loop in any case
    });
    EXPECT_EQ(dialog->exec(), 1);
    EXPECT_EQ(entry->name, QStringLiteral("Stock"));
    EXPECT_EQ(entry->url, QStringLiteral("stock"));
}

TEST_F(AutoRunPluginEditWidgetTest, KeysAloneChooseAndAccept)
{
    const auto entry = Entry(QString());
    Open(entry);
    EXPECT_TRUE(Combo()->hasFocus());
    QTest::keyClick(Combo(), Qt::Key_Down);
    QTest::keyClick(Combo(), Qt::Key_Return);
    EXPECT_EQ(dialog->result(), 1);
    EXPECT_EQ(entry->url, QStringLiteral("orders"));
}

TEST_F(AutoRunPluginEditWidgetTest, AppOfTheEntryIsSelected)
{
    Open(Entry(QStringLiteral("Old name"), QStringLiteral("stock")));
    EXPECT_EQ(Combo()->currentText(), QStringLiteral("Stock"));
}

TEST_F(AutoRunPluginEditWidgetTest, AppOfTheEntryIsOfferedAndSelectedEvenWhenItIsExcluded)
{
    Open(Entry(QStringLiteral("Stock"), QStringLiteral("stock")),
         {QStringLiteral("orders"), QStringLiteral("stock"), QStringLiteral("CHAT")});
    EXPECT_EQ(Offered(), QStringList({Prompt, QStringLiteral("Stock"), QStringLiteral("Chat")}));
    EXPECT_EQ(Combo()->currentText(), QStringLiteral("Stock"));
    Click(Ok());
    EXPECT_EQ(dialog->result(), 1);
}

TEST_F(AutoRunPluginEditWidgetTest, AddingWhenEveryAppIsThereOffersThePromptOnlyAndOkOpensTheList)
{
    const auto entry = Entry(QString());
    Open(entry, {QStringLiteral("orders"), QStringLiteral("stock"), QStringLiteral("chat")});
    EXPECT_EQ(Offered(), QStringList{Prompt});
    Click(Ok());
    EXPECT_EQ(Message(), Prompt);
    EXPECT_TRUE(IsListOpen());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(entry->url, QString());
    CloseList();
}

TEST_F(AutoRunPluginEditWidgetTest, AppThatIsNotOfferedIsNeverOfferedEvenWhenItIsTheEntrys)
{
    const auto entry = Entry(QStringLiteral("Hidden"), QStringLiteral("hidden"));
    Open(entry);
    EXPECT_FALSE(Offered().contains(QStringLiteral("Hidden")));
    EXPECT_EQ(Combo()->currentText(), Prompt);
    Click(Ok());
    EXPECT_EQ(Message(), Prompt);
    CloseList();
    EXPECT_EQ(entry->name, QStringLiteral("Hidden"));
}

TEST_F(AutoRunPluginEditWidgetTest, AppThatIsGoneLeavesThePromptSelected)
{
    Open(Entry(QStringLiteral("Gone"), QStringLiteral("gone")));
    EXPECT_EQ(Combo()->currentText(), Prompt);
    EXPECT_EQ(Combo()->count(), 4);
}

TEST_F(AutoRunPluginEditWidgetTest, AppThatGoesAwayWhileTheDialogIsOpenIsNotTaken)
{
    const auto entry = Entry(QString());
    Open(entry);
    Choose(QStringLiteral("Stock"));
    apps->SetPlugins({});
    Click(Ok());
    EXPECT_EQ(Message(), Prompt);
    EXPECT_TRUE(IsListOpen());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(entry->url, QString());
    CloseList();
}

TEST_F(AutoRunPluginEditWidgetTest, OfTwoAppsWithOneNameTheFirstIsTaken)
{
    apps->SetPlugins({App(QStringLiteral("Orders"), QStringLiteral("hidden"), {}, 1),
                      App(QStringLiteral("Orders"), QStringLiteral("first")),
                      App(QStringLiteral("Orders"), QStringLiteral("second"))});
    const auto entry = Entry(QStringLiteral("Orders"), QStringLiteral("second"));
    Open(entry);
    EXPECT_EQ(Offered(), QStringList({Prompt, QStringLiteral("Orders"), QStringLiteral("Orders")}));
    EXPECT_EQ(Combo()->currentIndex(), 1);
    Combo()->setCurrentIndex(2);
    Click(Ok());
    EXPECT_EQ(dialog->result(), 1);
    EXPECT_EQ(entry->url, QStringLiteral("first"));
}

TEST_F(AutoRunPluginEditWidgetTest, EmptyAppListOffersThePromptOnly)
{
    apps->SetPlugins({});
    Open(Entry(QString()));
    EXPECT_EQ(Offered(), QStringList{Prompt});
}

TEST_F(AutoRunPluginEditWidgetTest, WithoutAnAppListNothingIsFilledAndOkIsSilent)
{
    routes.SetRouteObject(AutoRunRouterUrls::PluginsObject(), nullptr);
    const auto entry = Entry(QString());
    Open(entry);
    EXPECT_EQ(Combo()->count(), 0);
    EXPECT_EQ(Find<QLabel>(*dialog, "content_label")->text(), QString());
    Click(Ok());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(Bubbles().isEmpty());
    EXPECT_FALSE(dialog->CheckInput());
    SwitchToChinese();
    EXPECT_EQ(Combo()->count(), 0);
    EXPECT_EQ(Find<QLabel>(*dialog, "content_label")->text(), QString());
}

TEST_F(AutoRunPluginEditWidgetTest, AppListThatGoesAwayLeavesTheListAsItWas)
{
    Open(Entry(QString()));
    routes.SetRouteObject(AutoRunRouterUrls::PluginsObject(), nullptr);
    dialog->SetData(Entry(QString(), QStringLiteral("stock")));
    EXPECT_EQ(Combo()->count(), 4);
    EXPECT_EQ(Combo()->currentIndex(), 0);
    Combo()->setCurrentIndex(1);
    Click(Ok());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(Bubbles().isEmpty());
}

TEST_F(AutoRunPluginEditWidgetTest, AppListThatArrivesLaterFindsNothingSelected)
{
    routes.SetRouteObject(AutoRunRouterUrls::PluginsObject(), nullptr);
    Open(Entry(QString()));
    routes.SetRouteObject(AutoRunRouterUrls::PluginsObject(), apps.get());
    Click(Ok());
    EXPECT_EQ(Message(), Prompt);
    EXPECT_FALSE(IsListOpen()) << "there is nothing in it";
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(AutoRunPluginEditWidgetTest, FiveHundredAppsAreOfferedAndTheLastCanBeChosen)
{
    QList<QSharedPointer<TLPluginBaseEntity>> many;
    for (int i = 0; i < 500; ++i) {
        many.append(App(QStringLiteral("App %1").arg(i), QStringLiteral("key%1").arg(i), Icon(i)));
    }
    apps->SetPlugins(many);
    const auto entry = Entry(QString());
    Open(entry);
    EXPECT_EQ(Combo()->count(), 501);
    Choose(QStringLiteral("App 499"));
    EXPECT_EQ(Combo()->currentText(), QStringLiteral("App 499"));
    Click(Ok());
    EXPECT_EQ(dialog->result(), 1);
    EXPECT_EQ(entry->url, QStringLiteral("key499"));
}

TEST_F(AutoRunPluginEditWidgetTest, NamesAreShownAsTextWhateverIsInThem)
{
    QList<QSharedPointer<TLPluginBaseEntity>> strange;
    const QStringList names{QStringLiteral("<b>bold</b>"),
                            QStringLiteral("<img src=x>"),
                            QStringLiteral("a & b"),
                            QString::fromUtf8("\xF0\x9F\x9B\x92"),
                            QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"),
                            QString(300, QLatin1Char('m'))};
    for (const QString& name : names) {
        strange.append(App(name, QStringLiteral("key of ") + name));
    }
    apps->SetPlugins(strange);
    for (const QString& name : names) {
        const auto entry = Entry(QString());
        Open(entry);
        EXPECT_EQ(Offered(), QStringList{Prompt} + names);
        Choose(name);
        EXPECT_EQ(Combo()->currentText(), name);
        EXPECT_LE(dialog->width(), 532);
        Click(Ok());
        EXPECT_EQ(entry->name, name);
        EXPECT_EQ(entry->url, QStringLiteral("key of ") + name);
    }
}

TEST_F(AutoRunPluginEditWidgetTest, PromptIsNoChoiceAndOkOpensTheList)
{
    const auto entry = Entry(QString());
    Open(entry);
    Click(Ok());
    EXPECT_EQ(Message(), Prompt);
    EXPECT_TRUE(IsListOpen());
    CloseList();
    TLBubbleLabel* const bubble = Bubbles().first();
    Choose(QStringLiteral("Chat"));
    EXPECT_EQ(Message(), Prompt) << "nothing but the next message changes it";
    Choose(Prompt);
    Click(Ok());
    EXPECT_EQ(Bubbles(), QList<TLBubbleLabel*>{bubble});
    CloseList();
    Choose(QStringLiteral("Chat"));
    Click(Ok());
    EXPECT_EQ(dialog->result(), 1);
}

TEST_F(AutoRunPluginEditWidgetTest, AppWithoutANameIsNoChoice)
{
    apps->SetPlugins({App(QString(), QStringLiteral("nameless"))});
    const auto entry = Entry(QString());
    Open(entry);
    Combo()->setCurrentIndex(1);
    Click(Ok());
    EXPECT_EQ(Message(), Prompt);
    EXPECT_FALSE(IsListOpen());
    EXPECT_EQ(entry->url, QString());
}

TEST_F(AutoRunPluginEditWidgetTest, BubbleStandsAtTheListMovedDownByTen)
{
    for (const int scale : {1, 2}) {
        DpiTool::SetScale(scale);
        Open(Entry(QString()));
        dialog->setFixedSize(532 * scale, 228 * scale);
        QCoreApplication::sendPostedEvents();
        EXPECT_FALSE(dialog->CheckInput());
        CloseList();
        EXPECT_EQ(Bubbles().first()->mapTo(dialog.get(), QPoint()),
                  Combo()->mapTo(dialog.get(), QPoint(0, 10 * scale)))
            << scale;
    }
}

TEST_F(AutoRunPluginEditWidgetTest, CancelAndEscapeLeaveTheEntryAlone)
{
    const auto entry = Entry(QStringLiteral("Stock"), QStringLiteral("stock"));
    Open(entry);
    QTimer::singleShot(0, dialog.get(), [this] {
        Combo()->setCurrentIndex(1);
        Click(Cancel());
        EXPECT_FALSE(dialog->isVisible());
        dialog->hide();
    });
    EXPECT_EQ(dialog->exec(), 0);
    Open(entry);
    Combo()->setCurrentIndex(1);
    QTest::keyClick(Combo(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(entry->name, QStringLiteral("Stock"));
    EXPECT_EQ(entry->url, QStringLiteral("stock"));
}

TEST_F(AutoRunPluginEditWidgetTest, OkWithoutAnEntryDoesNothing)
{
    Open(Entry(QString()));
    Combo()->setCurrentIndex(1);
    dialog->SetData({});
    EXPECT_EQ(Combo()->currentIndex(), 1) << "the list stays as it is";
    Click(Ok());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(Bubbles().isEmpty());
}

TEST_F(AutoRunPluginEditWidgetTest, CheckWritesTheChoiceAndClosesNothing)
{
    const auto entry = Entry(QString());
    Open(entry);
    Combo()->setCurrentText(QStringLiteral("Chat"));
    EXPECT_TRUE(dialog->CheckInput());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(entry->name, QStringLiteral("Chat"));
    EXPECT_EQ(entry->url, QStringLiteral("chat"));
}

TEST_F(AutoRunPluginEditWidgetTest, SetDataAgainFillsTheListAnew)
{
    Open(Entry(QString()));
    dialog->SetExcludeKeys({QStringLiteral("orders")});
    dialog->SetData(Entry(QString(), QStringLiteral("chat")));
    EXPECT_EQ(Offered(), QStringList({Prompt, QStringLiteral("Stock"), QStringLiteral("Chat")}));
    EXPECT_EQ(Combo()->currentText(), QStringLiteral("Chat"));
}

TEST_F(AutoRunPluginEditWidgetTest, EveryOfferedAppsIconIsAskedFor)
{
    QSignalSpy answers(&images, &VXImageCache::SigRequestImageFinished);
    Open(Entry(QString()), {QStringLiteral("orders")});
    ASSERT_TRUE(QTest::qWaitFor([&answers] { return answers.count() >= 2; }));
    QStringList asked;
    for (const QList<QVariant>& answer : answers) {
        EXPECT_FALSE(answer.at(0).toBool());
        asked.append(answer.at(1).toString());
    }
    asked.sort();
    EXPECT_EQ(asked, QStringList({Icon(2), Icon(4)}));
    EXPECT_EQ(IconColor(1), DefaultColor) << "an icon that cannot be had leaves the default";
}

TEST_F(AutoRunPluginEditWidgetTest, FetchedIconReplacesTheDefaultAndStaysWhenTheFileGoes)
{
    Open(Entry(QString()));
    const QString file = Picture(Qt::blue);
    Q_EMIT images.SigRequestImageFinished(true, Icon(2), file);
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(IconColor(1), DefaultColor);
    EXPECT_EQ(IconColor(2), QColor(Qt::blue));
    EXPECT_EQ(IconColor(3), DefaultColor);
}

TEST_F(AutoRunPluginEditWidgetTest, OfTwoItemsWithOneIconAddressOnlyTheFirstGetsIt)
{
    apps->SetPlugins({App(QStringLiteral("A"), QStringLiteral("a"), Icon(1)),
                      App(QStringLiteral("B"), QStringLiteral("b"), Icon(1))});
    Open(Entry(QString()));
    Q_EMIT images.SigRequestImageFinished(true, Icon(1), Picture(Qt::blue));
    EXPECT_EQ(IconColor(1), QColor(Qt::blue));
    EXPECT_EQ(IconColor(2), DefaultColor);
    Q_EMIT images.SigRequestImageFinished(true, Icon(1), Picture(Qt::green));
    EXPECT_EQ(IconColor(1), QColor(Qt::green)) << "a later answer counts as well";
    EXPECT_EQ(IconColor(2), DefaultColor);
}

TEST_F(AutoRunPluginEditWidgetTest, AnswersNobodyAskedForAndFailedOnesChangeNothing)
{
    apps->SetPlugins({App(QStringLiteral("A"), QStringLiteral("a"), Icon(1)),
                      App(QStringLiteral("B"), QStringLiteral("b"), Icon(2))});
    Open(Entry(QString()), {QStringLiteral("b")});
    const QString blue = Picture(Qt::blue);
    Q_EMIT images.SigRequestImageFinished(true, Icon(2), blue);
    Q_EMIT images.SigRequestImageFinished(true, QStringLiteral("ICON:1"), blue);
    Q_EMIT images.SigRequestImageFinished(true, QString(), blue);
    Q_EMIT images.SigRequestImageFinished(false, Icon(1), blue);
    Q_EMIT images.SigRequestImageFinished(true, Icon(1), QStringLiteral("/nowhere"));
    EXPECT_TRUE(Combo()->itemIcon(0).isNull());
    EXPECT_EQ(IconColor(1), DefaultColor);
}

TEST_F(AutoRunPluginEditWidgetTest, AnswersAfterItsEndAreNotReceived)
{
    apps->SetPlugins({App(QStringLiteral("A"), QStringLiteral("a"), Icon(1))});
    Open(Entry(QString()));
    const QString blue = Picture(Qt::blue);
    // While the dialog is on its way out: its own part is gone, and its widgets go.
    bool isAnswered = false;
    QColor icon;
    auto* const model = Combo()->model();
    QObject::connect(Find(*dialog, "content_label"), &QObject::destroyed, &images, [&] {
        isAnswered = true;
        Q_EMIT images.SigRequestImageFinished(true, Icon(1), blue);
    });
    QObject::connect(model, &QAbstractItemModel::dataChanged, &images, [&icon] { icon = Qt::blue; });
    dialog.reset();
    EXPECT_TRUE(isAnswered);
    EXPECT_FALSE(icon.isValid());
}

TEST_F(AutoRunPluginEditWidgetTest, IsChineseInAChineseClientAndFollowsTheLanguage)
{
    Open(Entry(QString()));
    SwitchToChinese();
    EXPECT_EQ(Ok()->text(), QString::fromUtf8("确定"));
    EXPECT_EQ(Cancel()->text(), QString::fromUtf8("取消"));
    EXPECT_EQ(Find<QLabel>(*dialog, "content_label")->text(), QString::fromUtf8("编辑应用"));
    EXPECT_EQ(Combo()->currentText(), QString::fromUtf8("请选择应用"));
    Click(Ok());
    EXPECT_EQ(Message(), QString::fromUtf8("请选择应用"));
    CloseList();
    EXPECT_EQ(AutoRunPluginAddWidget().GetTitleText(), QString::fromUtf8("添加应用"));
    SwitchToEnglish();
    EXPECT_EQ(Combo()->currentText(), Prompt);
    EXPECT_EQ(Find<QLabel>(*dialog, "content_label")->text(), QStringLiteral("Edit App"));
}
