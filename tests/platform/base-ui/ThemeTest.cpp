#include "base-ui/TLBubbleLabel.h"
#include "base-ui/TLCheckBox.h"
#include "base-ui/TLComboBox.h"
#include "base-ui/TLLineEdit.h"
#include "base-ui/TLMask.h"
#include "base-ui/TLMaskWidget.h"
#include "base-ui/TLPushButton.h"
#include "base-ui/TLToast.h"
#include "base-ui/UIUtils.h"

#include "look/ThemeManager.h"

#include <QtCore/QMetaProperty>
#include <QtGui/QColor>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <cmath>
#include <gtest/gtest.h>
#include <initializer_list>

namespace {

double Luminance(const QColor& color)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other)
{
    const double a = Luminance(one);
    const double b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor Color(const QObject& widget, const char* name)
{
    QColor color = widget.property(name).value<QColor>();
    EXPECT_TRUE(color.isValid()) << widget.metaObject()->className() << " " << name;
    return color;
}

/// Each test with the light and the dark theme of the client.
class ThemeTest : public testing::TestWithParam<Theme>
{
protected:
    ThemeTest()
    {
        m_themes.Apply(GetParam());
        m_window.resize(400, 300);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    ~ThemeTest() override { qApp->setStyleSheet(QString()); }

    ThemeManager m_themes;
    QWidget m_window;
};

/// A property that the theme forgot, or one that it gives under a wrong name, stays as it was made.
void ExpectEveryColorGiven(const QObject& widget)
{
    const QMetaObject* const meta = widget.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        if (meta->property(i).type() == QVariant::Color) {
            (void)Color(widget, meta->property(i).name());
        }
    }
}

} // namespace

TEST_P(ThemeTest, GivesEveryColour)
{
    TLPushButton button(&m_window);
    button.ensurePolished();
    for (int type : {ButtonType::Default, ButtonType::Primary, ButtonType::Plain, ButtonType::Secondary}) {
        button.SetButtonType(type);
        ExpectEveryColorGiven(button);
    }
    TLCheckBox box(&m_window);
    box.ensurePolished();
    ExpectEveryColorGiven(box);
    TLLineEdit field(&m_window);
    field.ensurePolished();
    ExpectEveryColorGiven(field);
    TLComboBox combo(&m_window);
    combo.ensurePolished();
    ExpectEveryColorGiven(combo);
    TLBubbleLabel bubble(&m_window);
    bubble.ensurePolished();
    ExpectEveryColorGiven(bubble);
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(&m_window, &m_window);
    mask->ensurePolished();
    ExpectEveryColorGiven(*mask);
    EXPECT_LT(Color(*mask, "maskColor").alpha(), 200);
    for (int type = ToastType::Information; type <= ToastType::Error; ++type) {
        TLToast::Show(QStringLiteral("Text"), type);
        ExpectEveryColorGiven(*m_window.findChild<TLToast*>());
    }
}

TEST_P(ThemeTest, TextsCanBeReadInEveryState)
{
    const QColor page = QApplication::palette().color(QPalette::Window);
    TLPushButton button(&m_window);
    for (int type : {ButtonType::Default, ButtonType::Primary, ButtonType::Plain, ButtonType::Secondary}) {
        button.SetButtonType(type);
        button.ensurePolished();
        for (const char* fill : {"fillColor", "hoverColor", "pressedColor"}) {
            const QColor color = Color(button, fill);
            EXPECT_GE(Contrast(Color(button, "textColor"), color.alpha() == 0 ? page : color), 4.5)
                << type << " " << fill;
        }
        EXPECT_GE(Contrast(Color(button, "focusColor"), page), 3.0) << type;
    }
    TLBubbleLabel bubble(&m_window);
    bubble.ensurePolished();
    EXPECT_GE(Contrast(Color(bubble, "textColor"), Color(bubble, "bubbleColor")), 4.5);
    EXPECT_GE(Contrast(Color(bubble, "signColor"), Color(bubble, "bubbleColor")), 3.0);
    for (int type = ToastType::Information; type <= ToastType::Error; ++type) {
        TLToast::Show(QStringLiteral("Text"), type);
        const TLToast* const toast = m_window.findChild<TLToast*>();
        EXPECT_GE(Contrast(Color(*toast, "textColor"), Color(*toast, "toastColor")), 4.5);
        EXPECT_GE(Contrast(Color(*toast, "signColor"), Color(*toast, "toastColor")), 3.0) << type;
    }
}

TEST_P(ThemeTest, FieldsAndTheirTextsCanBeSeen)
{
    TLComboBox combo(&m_window);
    combo.ensurePolished();
    EXPECT_GE(Contrast(Color(combo, "borderColor"), Color(combo, "fieldColor")), 3.0);
    EXPECT_GE(Contrast(Color(combo, "focusColor"), Color(combo, "fieldColor")), 3.0);
    EXPECT_GE(Contrast(Color(combo, "textColor"), Color(combo, "fieldColor")), 4.5);
    EXPECT_GE(Contrast(Color(combo, "rowTextColor"), Color(combo, "rowColor")), 4.5);
    TLLineEdit field(&m_window);
    field.ensurePolished();
    EXPECT_GE(Contrast(Color(field, "borderColor"), Color(field, "fieldColor")), 3.0);
    const QPalette& colors = field.palette();
    EXPECT_GE(Contrast(colors.color(QPalette::Text), Color(field, "fieldColor")), 4.5);
    EXPECT_GE(Contrast(colors.color(QPalette::PlaceholderText), Color(field, "fieldColor")), 4.5);
}

TEST_P(ThemeTest, AHighlightedWordChangesWithTheTheme)
{
    QLabel label(QStringLiteral("Set the URL"), &m_window);
    label.ensurePolished();
    UIUtils::HighlightLabel(&label, QStringLiteral("url"));
    const QString before = QApplication::palette().color(QPalette::Link).name();
    EXPECT_TRUE(label.text().contains(before)) << qPrintable(label.text());
    m_themes.Apply(GetParam() == Theme::Light ? Theme::Dark : Theme::Light);
    const QString after = QApplication::palette().color(QPalette::Link).name();
    ASSERT_NE(before, after);
    EXPECT_TRUE(label.text().contains(after)) << qPrintable(label.text());
}

TEST_P(ThemeTest, LayoutsCannotSqueezeAButtonOrAField)
{
    // A smallest size in the theme would take the place of the one that the widgets name themselves.
    TLPushButton button(&m_window);
    TLLineEdit field(&m_window);
    TLComboBox combo(&m_window);
    for (QWidget* widget : std::initializer_list<QWidget*>{&button, &field, &combo}) {
        widget->ensurePolished();
        EXPECT_EQ(widget->minimumSize(), QSize(0, 0)) << widget->metaObject()->className();
    }
}

TEST_P(ThemeTest, ALongListShowsWholeRowsInItsFrame)
{
    TLComboBox combo(&m_window);
    combo.SetBusiness(ComboBusiness::Apps);
    for (int i = 0; i < 40; ++i) {
        combo.addItem(QStringLiteral("App %1").arg(i));
    }
    combo.show();
    combo.showPopup();
    const QAbstractItemView* const list = combo.view();
    EXPECT_EQ(list->viewport()->height(), 7 * list->visualRect(combo.model()->index(0, 0)).height());
    EXPECT_EQ(list->height(), list->window()->contentsRect().height());
    combo.hidePopup();
}

TEST_P(ThemeTest, BoxesAndTheirMarksCanBeSeen)
{
    TLCheckBox box(&m_window);
    box.ensurePolished();
    const QColor page = QApplication::palette().color(QPalette::Window);
    EXPECT_GE(Contrast(Color(box, "borderColor"), Color(box, "boxColor")), 3.0);
    EXPECT_GE(Contrast(Color(box, "markColor"), Color(box, "checkedColor")), 3.0);
    EXPECT_GE(Contrast(Color(box, "focusColor"), page), 3.0);
    EXPECT_GE(Contrast(Color(box, "textColor"), page), 4.5);
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemeTest, testing::Values(Theme::Light, Theme::Dark),
                         [](const testing::TestParamInfo<Theme>& test) {
                             return test.param == Theme::Dark ? "Dark" : "Light";
                         });
