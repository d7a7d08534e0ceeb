#include "LoginDialog.h"

#include "look/ScaleManager.h"
#include "look/ThemeManager.h"

#include <QtGui/QIcon>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

constexpr int Scales[] = {100, 125, 150, 200};

LoginProblem WrongPassword()
{
    return {LoginProblem::Kind::WrongPassword, QString(), QDateTime()};
}

LoginProblem LongProblem()
{
    return {LoginProblem::Kind::ClockOff, QString(), QDateTime(QDate(2026, 11, 21), QTime(8, 15), Qt::UTC)};
}

using State = std::function<void(LoginDialog*)>;

const State States[] = {
    [](LoginDialog*) {},
    [](LoginDialog* dialog) { dialog->ShowProblem(WrongPassword()); },
    [](LoginDialog* dialog) { dialog->ShowProblem(LongProblem()); },
    [](LoginDialog* dialog) {
        auto* const password = dialog->findChild<QLineEdit*>(QStringLiteral("password_edit"));
        QTest::sendKeyEvent(QTest::Click, password, Qt::Key_A, QStringLiteral("A"), Qt::NoModifier);
    },
    [](LoginDialog* dialog) { dialog->SetBusy(true); },
};

/// The geometry of every visible widget, by its name.
QMap<QString, QRect> GetPlaces(const LoginDialog& dialog)
{
    QMap<QString, QRect> places = {{QString(), dialog.rect()}};
    for (const auto* const widget : dialog.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (widget->isVisible()) {
            places.insert(widget->objectName(), widget->geometry());
        }
    }
    return places;
}

} // namespace

/// The dialog in the client's theme, at every scale.
class LoginDialogScaleTest : public ::testing::Test
{
protected:
    LoginDialogScaleTest()
    {
        QPixmap picture(256, 256);
        picture.fill(Qt::red);
        QApplication::setWindowIcon(QIcon(picture));
        m_themes.Apply(Theme::Light);
    }
    ~LoginDialogScaleTest() override
    {
        m_scales.Apply(100);
        qApp->setStyleSheet(QString());
        QApplication::setPalette(m_palette);
        QApplication::setFont(m_font);
        QApplication::setWindowIcon(QIcon());
    }

    void SetScale(int scale)
    {
        m_scales.Apply(scale);
        QCoreApplication::sendPostedEvents();
    }

    std::unique_ptr<LoginDialog> Open(const State& state = States[0])
    {
        auto dialog = std::make_unique<LoginDialog>(nullptr, [this] { return m_screenHeight; });
        dialog->show();
        state(dialog.get());
        QCoreApplication::sendPostedEvents();
        return dialog;
    }

    const QFont m_font = QApplication::font();
    const QPalette m_palette = QApplication::palette();
    int m_screenHeight = 1440;
    ScaleManager m_scales;
    ThemeManager m_themes;
};

TEST_F(LoginDialogScaleTest, LogoMarginsAndGapsAreThoseOfTheScale)
{
    struct
    {
        int scale, logo, left, top, bottom, gap, titleGap, labelGap, messageGap, rowGap, width, field;
    } const rows[] = {{100, 48, 40, 36, 32, 12, 20, 6, 14, 8, 400, 320},
                      {150, 72, 60, 54, 48, 18, 30, 9, 21, 12, 600, 480},
                      {200, 96, 80, 72, 64, 24, 40, 12, 28, 16, 800, 640}};
    const auto below = [](const QRect& upper, const QRect& lower) {
        return lower.y() - upper.y() - upper.height();
    };
    const auto expect = [&below](const LoginDialog& dialog, const auto& row) {
        const auto* const logo = dialog.findChild<QLabel*>(QStringLiteral("login_logo"));
        EXPECT_EQ(logo->pixmap(Qt::ReturnByValue).size(), QSize(row.logo, row.logo));
        const auto places = GetPlaces(dialog);
        const auto at = [&places](const char* name) { return places.value(QLatin1String(name)); };
        EXPECT_EQ(at("login_logo").topLeft(), QPoint(row.left, row.top));
        EXPECT_EQ(at("login_logo").height(), row.logo);
        EXPECT_EQ(below(at("login_logo"), at("login_title")), row.gap);
        EXPECT_EQ(below(at("login_subtitle"), at("pin_label")), row.titleGap);
        EXPECT_EQ(below(at("pin_label"), at("pin_edit")), row.labelGap);
        EXPECT_EQ(below(at("pin_edit"), at("password_label")), row.gap);
        EXPECT_EQ(below(at("login_message"), at("login_button")), row.messageGap);
        EXPECT_EQ(at("show_password_button").x() - at("password_edit").x() - at("password_edit").width(),
                  row.rowGap);
        EXPECT_EQ(dialog.height() - at("login_button").y() - at("login_button").height(), row.bottom);
        EXPECT_EQ(dialog.width(), row.width);
        for (const char* const name : {"pin_edit", "login_message", "login_button"}) {
            EXPECT_EQ(at(name).width(), row.field) << name;
        }
    };
    const auto open = Open(States[1]);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.scale);
        SetScale(row.scale);
        expect(*open, row);
        expect(*Open(States[1]), row);
    }
}

TEST_F(LoginDialogScaleTest, OpenDialogFollowsTheScaleLikeAFreshOne)
{
    for (size_t state = 0; state < std::size(States); ++state) {
        for (const int from : Scales) {
            SetScale(from);
            const auto open = Open(States[state]);
            for (const int to : Scales) {
                SetScale(to);
                EXPECT_EQ(GetPlaces(*open), GetPlaces(*Open(States[state])))
                    << "state " << state << " from " << from << " to " << to;
            }
        }
    }
}

TEST_F(LoginDialogScaleTest, NothingIsCutOff)
{
    for (const int scale : Scales) {
        SetScale(scale);
        for (size_t state = 0; state < std::size(States); ++state) {
            const auto dialog = Open(States[state]);
            for (const auto* const widget :
                 dialog->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                if (!widget->isVisible() || widget->objectName() == QLatin1String("busy_bar")) {
                    continue;
                }
                const int height = widget->hasHeightForWidth() ? widget->heightForWidth(widget->width())
                                                               : widget->sizeHint().height();
                EXPECT_GE(widget->height(), height) << qPrintable(widget->objectName()) << " at " << scale;
                EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
                    << qPrintable(widget->objectName()) << " at " << scale;
                EXPECT_TRUE(dialog->contentsRect().contains(widget->geometry()))
                    << qPrintable(widget->objectName()) << " at " << scale;
            }
        }
    }
}

TEST_F(LoginDialogScaleTest, TheButtonBesideThePasswordIsAsHighAsTheField)
{
    for (const int scale : Scales) {
        SetScale(scale);
        const auto places = GetPlaces(*Open());
        const QRect field = places.value(QStringLiteral("password_edit"));
        const QRect button = places.value(QStringLiteral("show_password_button"));
        EXPECT_EQ(button.y(), field.y()) << scale;
        EXPECT_EQ(button.height(), field.height()) << scale;
    }
}

TEST_F(LoginDialogScaleTest, OnALowScreenLogoMarginsAndGapsShrink)
{
    constexpr int frame = 30;
    struct
    {
        int screenHeight, highestScale;
    } const rows[] = {{1000, 200}, {900, 200}, {760, 150}, {680, 125}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.screenHeight);
        m_screenHeight = row.screenHeight;
        for (const int scale : Scales) {
            if (scale > row.highestScale) {
                break;
            }
            SetScale(scale);
            const auto dialog = Open(States[2]);
            const auto places = GetPlaces(*dialog);
            EXPECT_LE(dialog->height() + frame, row.screenHeight) << scale;
            EXPECT_EQ(places.value(QStringLiteral("pin_edit")).width(), 320 * scale / 100);
            EXPECT_GE(places.value(QStringLiteral("login_logo")).height(), 48) << scale;
        }
    }
}

TEST_F(LoginDialogScaleTest, OnAVeryLowScreenNothingIsSmallerThanAtFullSize)
{
    const int before = Open()->height();
    m_screenHeight = 100;
    EXPECT_EQ(Open()->height(), before);
    SetScale(200);
    const auto dialog = Open();
    const auto places = GetPlaces(*dialog);
    EXPECT_EQ(places.value(QStringLiteral("login_logo")), QRect(40, 36, 640, 48));
    EXPECT_EQ(dialog->width(), 640 + 2 * 40);
}

TEST_F(LoginDialogScaleTest, ChangeOfScaleKeepsTheTextAndTheFocus)
{
    const auto dialog = Open();
    dialog->SetPin(QStringLiteral("demo"));
    auto* const password = dialog->findChild<QLineEdit*>(QStringLiteral("password_edit"));
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    QTest::keyClicks(password, QStringLiteral("sec"));
    dialog->ShowProblem({LoginProblem::Kind::WrongPassword, QString(), QDateTime()});
    SetScale(150);
    EXPECT_EQ(QApplication::focusWidget(), password);
    EXPECT_EQ(password->selectedText(), QStringLiteral("sec"));
    EXPECT_TRUE(dialog->findChild<QLabel*>(QStringLiteral("login_message"))->isVisible());
}
