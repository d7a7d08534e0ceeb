#include "MainWindowTest.h"

#include "EarlierTabsDialog.h"
#include "look/LanguageManager.h"
#include "look/SymbolicIcon.h"
#include "look/ThemeManager.h"
#include "notices/NoticeBar.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>

#include <cmath>

namespace {

QStringList& GetWarnings()
{
    static QStringList warnings;
    return warnings;
}

void NoteWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    // Qt's offscreen platform warns about what a window manager would do.
    const bool ofPlatform = text.startsWith(QStringLiteral("This plugin does not support"));
    if (type != QtDebugMsg && type != QtInfoMsg && !ofPlatform) {
        GetWarnings() << text;
    }
}

double GetLuminance(const QColor& color)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double GetContrast(const QColor& a, const QColor& b)
{
    const double light = qMax(GetLuminance(a), GetLuminance(b));
    const double dark = qMin(GetLuminance(a), GetLuminance(b));
    return (light + 0.05) / (dark + 0.05);
}

QStringList GetSelectors(const QString& file)
{
    QFile sheet(file);
    EXPECT_TRUE(sheet.open(QIODevice::ReadOnly));
    QString text = QString::fromUtf8(sheet.readAll());
    text.remove(
        QRegularExpression(QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption));
    text.replace(QRegularExpression(QStringLiteral("\\{[^}]*\\}")), QStringLiteral("{}"));
    return text.simplified().split(QStringLiteral("{}"));
}

class LookTest : public MainWindowTest
{
protected:
    ~LookTest() override { qApp->setStyleSheet(QString()); }

    ThemeManager m_themes;
};

class ThemeTest : public LookTest, public ::testing::WithParamInterface<Theme>
{};

} // namespace

TEST_P(ThemeTest, LoadsWithoutAWarningAndPaintsEverything)
{
    OpenUrl(QStringLiteral("file:///x"));
    OpenApp(QStringLiteral("orders"));
    m_window->GetNoticeBar()->Show(QStringLiteral("a"), NoticeKind::Error, QStringLiteral("text"));
    GetWarnings().clear();
    const auto before = qInstallMessageHandler(NoteWarning);
    m_themes.Apply(GetParam());
    for (int i = 0; i < m_window->GetTabCount(); ++i) {
        m_window->SelectTab(i);
        m_window->grab();
    }
    QMenu menu;
    menu.addAction(QStringLiteral("x"))->setCheckable(true);
    menu.grab();
    EarlierTabsDialog earlier(
        {{QDateTime::currentDateTime(), EarlierTabSet::Reason::Declined, {TabRecord()}, false}});
    earlier.grab();
    qInstallMessageHandler(before);
    EXPECT_EQ(GetWarnings(), QStringList()) << qPrintable(GetWarnings().join(QLatin1Char('\n')));
    EXPECT_EQ(m_themes.IsDark(), GetParam() == Theme::Dark);
}

TEST_P(ThemeTest, TextsAndAccentHaveEnoughContrast)
{
    m_themes.Apply(GetParam());
    const QPalette palette = QApplication::palette();
    EXPECT_GE(GetContrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)), 7.0);
    EXPECT_GE(GetContrast(palette.color(QPalette::Text), palette.color(QPalette::Base)), 7.0);
    EXPECT_GE(GetContrast(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base)), 4.5);
    EXPECT_GE(GetContrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)), 4.5);
    EXPECT_GE(GetContrast(palette.color(QPalette::Highlight), palette.color(QPalette::Window)), 4.5);
    EXPECT_GE(GetContrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button)), 4.5);
}

INSTANTIATE_TEST_SUITE_P(Both, ThemeTest, ::testing::Values(Theme::Light, Theme::Dark));

TEST_F(LookTest, BothThemesAddressTheSameWidgets)
{
    EXPECT_EQ(GetSelectors(QStringLiteral(":/themes/light.qss")),
              GetSelectors(QStringLiteral(":/themes/dark.qss")));
}

TEST_F(LookTest, FollowingTheSystemUsesItsLightness)
{
    QSignalSpy applied(&m_themes, &ThemeManager::SigThemeApplied);
    m_themes.Apply(Theme::FollowSystem);
    EXPECT_FALSE(m_themes.IsDark());
    EXPECT_EQ(m_themes.GetTheme(), Theme::FollowSystem);
    EXPECT_EQ(applied.size(), 1);
}

TEST_F(LookTest, IconsTakeTheColourOfTheTheme)
{
    const QIcon icon = SymbolicIcon::Make(QStringLiteral("menu"));
    const auto colour = [&icon] { return icon.pixmap(24, 24).toImage().pixelColor(12, 12); };
    m_themes.Apply(Theme::Light);
    const QColor light = colour();
    m_themes.Apply(Theme::Dark);
    const QColor dark = colour();
    EXPECT_GT(light.alpha(), 0) << "the icon was not drawn; is the SVG plug-in there?";
    EXPECT_LT(light.lightness(), dark.lightness());
}

TEST_F(LookTest, LanguageChangesInWidgetsThatAreAlreadyShown)
{
    OpenUrl(QStringLiteral("file:///x"));
    m_window->SelectTab(1);
    auto* greeting = m_window->findChild<QLabel*>(QStringLiteral("home_greeting"));
    auto* address = m_window->findChild<QLineEdit*>(QStringLiteral("address_bar"));
    LanguageManager languages(QStringLiteral(TL_TRANSLATIONS_DIR));
    QSignalSpy applied(&languages, &LanguageManager::SigLanguageApplied);

    languages.Apply(QStringLiteral("zh_CN"));
    EXPECT_EQ(languages.GetLanguage(), QStringLiteral("zh_CN"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return GetTitles().first() != QStringLiteral("Home"); }));
    EXPECT_EQ(GetTitles().first(), QStringLiteral("首页"));
    EXPECT_NE(greeting->text(), QStringLiteral("Welcome, Anna"));
    EXPECT_TRUE(greeting->text().contains(QStringLiteral("Anna")));
    EXPECT_NE(address->placeholderText(), QStringLiteral("Type a web address"));
    EXPECT_NE(GetMessage().value(0), QStringLiteral("This address was not opened"));
    EXPECT_EQ(GetMessage().value(2), QStringLiteral("file:///x"));
    EXPECT_EQ(applied.size(), 1);
}

TEST_F(LookTest, UnknownLanguageBringsEnglishBack)
{
    LanguageManager languages(QStringLiteral(TL_TRANSLATIONS_DIR));
    languages.Apply(QStringLiteral("zh_CN"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return GetTitles().first() == QStringLiteral("首页"); }));
    languages.Apply(QStringLiteral("xx"));
    EXPECT_EQ(languages.GetLanguage(), QStringLiteral("en"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return GetTitles().first() == QStringLiteral("Home"); }));
}

TEST_F(LookTest, MissingTranslationsFolderLeavesEnglish)
{
    LanguageManager languages(QStringLiteral("/nowhere"));
    languages.Apply(QStringLiteral("zh_CN"));
    EXPECT_EQ(GetTitles().first(), QStringLiteral("Home"));
}
