#include "AutoRunUiTest.h"

#include "ui/AutoRunAddWidget.h"
#include "ui/AutoRunEditWidget.h"

#include "base-ui/TLBubbleLabel.h"
#include "base-ui/TLLineEdit.h"
#include "base-ui/TLPushButton.h"
#include "base/DpiTool.h"

#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

const QString Good = QStringLiteral("https://shop.vx.example/orders?x=1#y");
const QString EmptyMessage = QStringLiteral("URL cannot be empty");
const QString BadMessage = QStringLiteral("Please enter the VX URL");

class AutoRunEditWidgetTest : public AutoRunUiTest
{
protected:
    void Open(const AutoRunInfoEntityPtr& entry)
    {
        dialog.setFixedSize(532, 228);
        dialog.SetData(entry);
        Show(&dialog);
    }

    TLLineEdit* Field() const { return Find<TLLineEdit>(dialog, "content_edit"); }
    TLPushButton* Ok() const { return Find<TLPushButton>(dialog, "ok_button"); }
    TLPushButton* Cancel() const { return Find<TLPushButton>(dialog, "cancel_button"); }
    QList<TLBubbleLabel*> Bubbles() const { return dialog.findChildren<TLBubbleLabel*>(); }
    /// What the one bubble says; empty while it is hidden or there is none.
    QString Message() const
    {
        EXPECT_LE(Bubbles().size(), 1);
        return Bubbles().isEmpty() || !Bubbles().first()->isVisible() ? QString() : Bubbles().first()->text();
    }
    void Type(const QString& text)
    {
        Field()->selectAll();
        QTest::keyClicks(Field(), text);
    }

    AutoRunEditWidget dialog;
};

} // namespace

TEST_F(AutoRunEditWidgetTest, HasTheNamesAndTextsOfItsForm)
{
    QWidget* const content = dialog.GetContentWidget();
    EXPECT_EQ(content->objectName(), QStringLiteral("AutoRunEditWidget"));
    EXPECT_EQ(content->windowTitle(), QStringLiteral("AutoRunEditWidget"));
    auto* const column = Find<QVBoxLayout>(dialog, "verticalLayout");
    ASSERT_EQ(content->layout(), column);
    EXPECT_EQ(column->spacing(), 0);
    EXPECT_EQ(MarginsOf(column), QMargins());
    ASSERT_EQ(column->count(), 2);
    EXPECT_EQ(column->itemAt(0)->widget(), Find(dialog, "content_widget"));
    EXPECT_EQ(column->itemAt(1)->widget(), Find(dialog, "bottom_widget"));

    auto* const line = Find<QHBoxLayout>(dialog, "contentWidgetLayout");
    ASSERT_EQ(line->count(), 2);
    EXPECT_EQ(line->itemAt(0)->widget(), Find<QLabel>(dialog, "content_label"));
    EXPECT_EQ(line->itemAt(1)->widget(), Field());
    EXPECT_EQ(Find<QLabel>(dialog, "content_label")->text(), QString()) << "until there is an entry";
    EXPECT_EQ(Field()->placeholderText(), QString());

    auto* const buttons = Find<QHBoxLayout>(dialog, "btnWidgetLayout");
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
}

TEST_F(AutoRunEditWidgetTest, GivesFieldAndButtonsTheirTypesAndAgainWithAnotherTheme)
{
    const auto check = [this] {
        EXPECT_EQ(Field()->m_sizeClass, 1);
        EXPECT_EQ(Ok()->GetButtonType(), 1);
        EXPECT_EQ(Ok()->m_sizeClass, 1);
        EXPECT_EQ(Cancel()->GetButtonType(), 3);
        EXPECT_EQ(Cancel()->m_sizeClass, 1);
    };
    check();
    Field()->m_sizeClass = 0;
    for (TLPushButton* button : {Ok(), Cancel()}) {
        button->SetButtonType(0);
        button->m_sizeClass = 0;
    }
    dialog.setStyleSheet(QStringLiteral("QLabel { color: red }"));
    check();
}

TEST_F(AutoRunEditWidgetTest, MarginsAndSpacingsFollowTheScale)
{
    const auto check = [](const AutoRunEditWidget& edit, int scale) {
        auto* const buttons = Find<QLayout>(edit, "btnWidgetLayout");
        auto* const line = Find<QLayout>(edit, "contentWidgetLayout");
        EXPECT_EQ(MarginsOf(buttons), QMargins(0, 0, 0, 30) * scale);
        EXPECT_EQ(buttons->spacing(), 10 * scale);
        EXPECT_EQ(MarginsOf(line), QMargins(40, 20, 40, 30) * scale);
        EXPECT_EQ(line->spacing(), 10 * scale);
        EXPECT_EQ(Find(edit, "bottom_widget")->minimumHeight(), 66 * scale);
        EXPECT_EQ(Find(edit, "bottom_widget")->maximumHeight(), 66 * scale);
    };
    check(dialog, 1);
    DpiTool::SetScale(2);
    check(dialog, 2);
    check(AutoRunEditWidget(), 2);
    DpiTool::SetScale(1);
    check(dialog, 1);
}

TEST_F(AutoRunEditWidgetTest, IsADialogWithATitleBarOfItsOwnAndAButtonToClose)
{
    EXPECT_TRUE((dialog.windowFlags() & Qt::WindowCloseButtonHint) != 0);
    EXPECT_TRUE((dialog.windowFlags() & Qt::FramelessWindowHint) != 0);
    EXPECT_FALSE((dialog.windowFlags() & Qt::WindowContextHelpButtonHint) != 0);
    Open(Entry(QString(), Good));
    const auto entry = dialog.GetData();
    Type(QStringLiteral("https://vx.example/other"));
    Click(Find(dialog, "title_close_button"));
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_EQ(entry->url, Good);
}

TEST_F(AutoRunEditWidgetTest, EmptyAddressLeavesTheFieldEmptyWithThePlaceholder)
{
    Open(Entry(QString()));
    EXPECT_EQ(Field()->text(), QString());
    EXPECT_EQ(Field()->placeholderText(), QStringLiteral("Please enter VX Url"));
    EXPECT_EQ(Find<QLabel>(dialog, "content_label")->text(), QStringLiteral("Edit Url"));
    EXPECT_EQ(Message(), QString());
    EXPECT_TRUE(Bubbles().isEmpty()) << "made when there is something to say";
}

TEST_F(AutoRunEditWidgetTest, AddressOfTheEntryStandsInTheFieldWhichHasTheFocus)
{
    Open(Entry(QString(), Good));
    EXPECT_EQ(Field()->text(), Good);
    EXPECT_TRUE(Field()->hasFocus());
}

TEST_F(AutoRunEditWidgetTest, AddingDiffersInItsTitleOnly)
{
    AutoRunAddWidget add;
    add.SetData(Entry(QString()));
    EXPECT_EQ(Find<QLabel>(add, "content_label")->text(), QStringLiteral("Add Url"));
    EXPECT_EQ(Find<QLineEdit>(add, "content_edit")->placeholderText(), QStringLiteral("Please enter VX Url"));
    EXPECT_EQ(add.GetContentWidget()->objectName(), QStringLiteral("AutoRunEditWidget"));
}

TEST_F(AutoRunEditWidgetTest, GoodAddressIsWrittenIntoTheEntryAndAccepted)
{
    const auto entry = Entry(QString());
    Open(entry);
    QTimer::singleShot(0, &dialog, [this] {
        Type(Good);
        Click(Ok());
        EXPECT_FALSE(dialog.isVisible());
        dialog.hide(); // which ends the loop in any case
    });
    EXPECT_EQ(dialog.exec(), 1);
    EXPECT_EQ(entry->url, Good);
    EXPECT_EQ(entry->name, QString());
}

TEST_F(AutoRunEditWidgetTest, EnterInTheFieldIsOkAndEscapeIsCancel)
{
    const auto entry = Entry(QString());
    Open(entry);
    Type(Good);
    QTest::keyClick(Field(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_EQ(entry->url, Good);

    Open(entry);
    Type(QStringLiteral("https://vx.example/other"));
    QTest::keyClick(Field(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_EQ(entry->url, Good);
}

TEST_F(AutoRunEditWidgetTest, EmptyTextIsToldOfAndStays)
{
    const auto entry = Entry(QString(), Good);
    Open(entry);
    Field()->clear();
    Click(Ok());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Message(), EmptyMessage);
    EXPECT_EQ(entry->url, Good);
}

TEST_F(AutoRunEditWidgetTest, OnlySpacesAreNotEmptyAndNoAddress)
{
    Open(Entry(QString()));
    Type(QStringLiteral("   "));
    Click(Ok());
    EXPECT_EQ(Message(), BadMessage);
    EXPECT_EQ(Field()->text(), QStringLiteral("   ")) << "the text is left as it is";
}

TEST_F(AutoRunEditWidgetTest, AddressesThatTheClientRefusesAreToldOfAndStay)
{
    const auto entry = Entry(QString());
    Open(entry);
    for (const char* utf8 :
         {"https://example.test/", "https://vx.example.evil.test/", "https://evilvx.example/",
          "https://user:pw@vx.example/", "https://vx.example@evil.test/", "https:\\\\vx.example",
          "https://evil.test\\.vx.example/",
          "https://vx\xEF\xBC\x8E"
          "example/",
          "https://xn--v-7tb.example/", "vx.example", "javascript:alert('vx.example')",
          "<b>https://vx.example</b>", "\xE2\x80\xAEhttps://vx.example/", "https://vx.example/\x01",
          "\xF0\x9F\x9B\x92"}) {
        const QString text = QString::fromUtf8(utf8);
        Field()->setText(text);
        Click(Ok());
        EXPECT_TRUE(dialog.isVisible()) << utf8;
        EXPECT_EQ(Message(), BadMessage) << utf8;
        EXPECT_EQ(Field()->text(), text) << utf8;
    }
    EXPECT_EQ(entry->url, QString());
}

TEST_F(AutoRunEditWidgetTest, TextOfTenThousandCharactersIsReadAsItStands)
{
    const auto entry = Entry(QString());
    Open(entry);
    const QString text = QStringLiteral("https://vx.example/") + QString(10000, QLatin1Char('a'));
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(Field(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Field()->text(), text) << "the field has no limit of its own";
    Click(Ok());
    EXPECT_EQ(Message(), BadMessage);
    EXPECT_EQ(entry->url, QString());
}

TEST_F(AutoRunEditWidgetTest, AddressPastedWithLineBreaksIsRefused)
{
    const auto entry = Entry(QString());
    Open(entry);
    QGuiApplication::clipboard()->setText(QStringLiteral("https://vx.example/\r\nhttps://evil.test/\n"));
    QTest::keyClick(Field(), Qt::Key_V, Qt::ControlModifier);
    Click(Ok());
    EXPECT_EQ(Message(), BadMessage);
    EXPECT_EQ(entry->url, QString());
}

TEST_F(AutoRunEditWidgetTest, TypingOneCharacterHidesTheBubbleAndTheSameOneComesAgain)
{
    Open(Entry(QString()));
    Type(QStringLiteral("x"));
    Click(Ok());
    EXPECT_EQ(Message(), BadMessage);
    TLBubbleLabel* const bubble = Bubbles().first();
    QTest::keyClicks(Field(), QStringLiteral("y"));
    EXPECT_EQ(Message(), QString());
    Click(Ok());
    EXPECT_EQ(Message(), BadMessage);
    Field()->clear();
    EXPECT_EQ(Message(), QString());
    QTest::keyClick(Field(), Qt::Key_Return);
    EXPECT_EQ(Message(), EmptyMessage);
    EXPECT_EQ(Bubbles(), QList<TLBubbleLabel*>{bubble});
}

TEST_F(AutoRunEditWidgetTest, BubbleStandsAtTheFieldMovedDownByTen)
{
    for (const int scale : {1, 2}) {
        DpiTool::SetScale(scale);
        Open(Entry(QString()));
        dialog.setFixedSize(532 * scale, 228 * scale);
        QCoreApplication::sendPostedEvents();
        Click(Ok());
        ASSERT_EQ(Message(), EmptyMessage);
        const QPoint field = Field()->mapTo(&dialog, QPoint(0, 10 * scale));
        EXPECT_EQ(Bubbles().first()->mapTo(&dialog, QPoint()), field) << scale;
        EXPECT_GT(Field()->x(), 40 * scale) << "the field is right of the label";
    }
}

TEST_F(AutoRunEditWidgetTest, CancelLeavesTheEntryAloneAfterAnEdit)
{
    const auto entry = Entry(QString(), Good);
    Open(entry);
    QTimer::singleShot(0, &dialog, [this] {
        Type(QStringLiteral("https://vx.example/other"));
        Click(Cancel());
        EXPECT_FALSE(dialog.isVisible());
        dialog.hide(); // which ends the loop in any case
    });
    EXPECT_EQ(dialog.exec(), 0);
    EXPECT_EQ(entry->url, Good);
}

TEST_F(AutoRunEditWidgetTest, OkWithoutAnEntryDoesNothingAtAll)
{
    Open({});
    Click(Ok());
    EXPECT_TRUE(dialog.isVisible());
    Type(Good);
    Click(Ok());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(Bubbles().isEmpty());
    EXPECT_EQ(Find<QLabel>(dialog, "content_label")->text(), QStringLiteral("Edit Url"));
}

TEST_F(AutoRunEditWidgetTest, HoldsOneReferenceUntilItIsGivenAnother)
{
    auto entry = Entry(QString(), Good);
    const QWeakPointer<AutoRunInfoEntity> old = entry;
    dialog.SetData(entry);
    EXPECT_EQ(dialog.GetData(), entry);
    entry.clear();
    EXPECT_FALSE(old.isNull());
    dialog.SetData(Entry(QString()));
    EXPECT_TRUE(old.isNull());
    EXPECT_EQ(Field()->text(), Good) << "an empty address puts nothing into the field";
}

TEST_F(AutoRunEditWidgetTest, CheckAloneWritesNothingAndClosesNothing)
{
    const auto entry = Entry(QString());
    Open(entry);
    EXPECT_FALSE(dialog.CheckInput());
    EXPECT_EQ(Message(), EmptyMessage);
    Type(QStringLiteral("x"));
    EXPECT_FALSE(dialog.CheckInput());
    EXPECT_EQ(Message(), BadMessage);
    Type(Good);
    EXPECT_TRUE(dialog.CheckInput());
    EXPECT_EQ(Message(), QString());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(entry->url, QString());
}

TEST_F(AutoRunEditWidgetTest, IsChineseInAChineseClientAndFollowsTheLanguage)
{
    Open(Entry(QString()));
    SwitchToChinese();
    EXPECT_EQ(Ok()->text(), QString::fromUtf8("确定"));
    EXPECT_EQ(Cancel()->text(), QString::fromUtf8("取消"));
    EXPECT_EQ(Find<QLabel>(dialog, "content_label")->text(), QString::fromUtf8("编辑网址"));
    EXPECT_EQ(Field()->placeholderText(), QString::fromUtf8("请输入 VX 网址"));
    Click(Ok());
    EXPECT_EQ(Message(), QString::fromUtf8("网址不能为空"));
    AutoRunAddWidget add;
    EXPECT_EQ(add.GetTitleText(), QString::fromUtf8("添加网址"));
    SwitchToEnglish();
    EXPECT_EQ(Ok()->text(), QStringLiteral("OK"));
    EXPECT_EQ(Find<QLabel>(dialog, "content_label")->text(), QStringLiteral("Edit Url"));
}
