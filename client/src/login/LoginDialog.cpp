#include "LoginDialog.h"

#include "LoginTexts.h"

#include "ui_LoginDialog.h"

#include "base/DpiTool.h"

#include <QtGui/QIcon>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include <initializer_list>
#include <utility>

namespace {

constexpr int LogoSize = 48;    // [px, unscaled]
constexpr int FieldWidth = 320; // [px, unscaled]

// In a dialog with a message of three lines [px, unscaled].
constexpr int TextHeight = 350; // texts, fields and buttons, and the window's frame
constexpr int RoomHeight = 210; // the logo, margins and gaps

/// The scale of logo, margins and gaps: the same as everywhere else, unless the screen is too low. Then they
/// shrink, at most to their size at 100 %, so that the button stays on the screen.
double GetRoomScale(int screenHeight)
{
    const double scale = DpiTool::GetScale();
    return qMin(scale, qMax(1.0, (screenHeight - TextHeight * scale) / RoomHeight));
}

/// Escapes the text, which may come from outside, so that nothing in it counts as markup.
QString ToToolTip(const QString& text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

/// The theme's rules depend on the kind.
void SetKind(QWidget* widget, const QString& kind)
{
    widget->setProperty("kind", kind);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace

LoginDialog::LoginDialog(QWidget* parent, std::function<int()> screenHeight)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint | Qt::WindowMinimizeButtonHint)
    , m_ui(std::make_unique<Ui::LoginDialog>())
    , m_screenHeight(std::move(screenHeight))
{
    m_ui->setupUi(this);
    setObjectName(QStringLiteral("login_dialog"));
    m_ui->password_edit->installEventFilter(this);

    connect(m_ui->login_button, &QPushButton::clicked, this, &LoginDialog::SlotLogIn);
    connect(m_ui->cancel_button, &QPushButton::clicked, this, &LoginDialog::reject);
    connect(m_ui->show_password_button, &QToolButton::toggled, this, &LoginDialog::ShowPassword);
    // Editing a field clears the message.
    for (QLineEdit* const edit : {m_ui->pin_edit, m_ui->password_edit}) {
        connect(edit, &QLineEdit::textEdited, this, [this] { ShowProblem(LoginProblem()); });
    }
    LoginDialog::AdjustForDpi();
    SetCapsLock(false);
    SetBusy(false);
    UpdateTexts();
}

LoginDialog::~LoginDialog() = default;

void LoginDialog::SetPin(const QString& pin)
{
    m_ui->pin_edit->setText(pin);
    FocusFirstEmpty();
}

void LoginDialog::SetStaySignedInAvailable(bool available, const QString& reason)
{
    m_canStaySignedIn = available;
    m_noKeyStoreReason = available ? QString() : reason;
    if (!available) {
        m_ui->stay_box->setChecked(false);
    }
    m_ui->stay_box->setEnabled(available && !m_busy);
    UpdateTexts();
}

void LoginDialog::SetBusy(bool busy)
{
    m_busy = busy;
    for (QWidget* const widget : std::initializer_list<QWidget*>{
             m_ui->pin_edit, m_ui->password_edit, m_ui->show_password_button, m_ui->login_button}) {
        widget->setEnabled(!busy);
    }
    m_ui->stay_box->setEnabled(!busy && m_canStaySignedIn);
    m_ui->busy_bar->setVisible(busy);
    m_ui->cancel_button->setVisible(busy);
    UpdateTexts();
    if (busy) {
        ShowProblem(LoginProblem());
        m_ui->cancel_button->setFocus();
    } else {
        FocusFirstEmpty();
    }
}

void LoginDialog::ShowProblem(const LoginProblem& problem)
{
    m_problem = problem;
    UpdateTexts();
    switch (problem.kind) {
    case LoginProblem::Kind::None:
        break;
    case LoginProblem::Kind::EmptyPin:
        m_ui->pin_edit->setFocus();
        break;
    case LoginProblem::Kind::EmptyPassword:
    case LoginProblem::Kind::WrongPassword:
        m_ui->password_edit->setFocus();
        m_ui->password_edit->selectAll();
        break;
    default:
        if (m_ui->password_edit->text().isEmpty()) {
            FocusFirstEmpty();
        } else {
            m_ui->login_button->setFocus();
        }
        break;
    }
}

void LoginDialog::reject()
{
    if (m_busy) {
        Q_EMIT SigCancel();
    } else {
        QDialog::reject();
    }
}

void LoginDialog::AdjustForDpi()
{
    const double scale = GetRoomScale(m_screenHeight ? m_screenHeight() : screen()->availableSize().height());
    const auto room = [scale](int pixels) { return qRound(pixels * scale); };
    m_ui->login_logo->setPixmap(QApplication::windowIcon().pixmap(room(LogoSize)));
    for (const auto& [gap, height] :
         std::initializer_list<std::pair<QSpacerItem*, int>>{{m_ui->logo_spacer, 6},
                                                             {m_ui->title_spacer, 14},
                                                             {m_ui->field_spacer, 6},
                                                             {m_ui->button_spacer, 8}}) {
        gap->changeSize(0, room(height), QSizePolicy::Minimum, QSizePolicy::Fixed);
    }
    m_ui->page_layout->setContentsMargins(room(40), room(36), room(40), room(32));
    m_ui->page_layout->setSpacing(room(6)); // also on both sides of the gaps

    // The heights of fields and buttons come from the theme.
    const auto scaled = &DpiTool::ScaleDefault;
    for (QBoxLayout* const row : {m_ui->password_head, m_ui->password_row, m_ui->button_row}) {
        row->setSpacing(scaled(8));
    }
    m_ui->pin_edit->setMinimumWidth(scaled(FieldWidth));
    m_ui->login_message->setFixedWidth(scaled(FieldWidth));
    m_ui->show_password_button->setMinimumWidth(scaled(56));
    m_ui->cancel_button->setMinimumWidth(scaled(96));
    m_ui->stay_box->setMinimumHeight(scaled(34));
    m_ui->busy_bar->setMaximumHeight(scaled(4));
}

void LoginDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        UpdateTexts();
    }
    QDialog::changeEvent(event);
}

bool LoginDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->password_edit && event->type() == QEvent::KeyPress) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        if (key->key() == Qt::Key_CapsLock) {
            SetCapsLock(false); // the next letter shows it again if Caps Lock is on
        } else if (text.size() == 1 && text.at(0).isLetter() &&
                   text.at(0).toLower() != text.at(0).toUpper()) {
            const bool shift = key->modifiers().testFlag(Qt::ShiftModifier);
            SetCapsLock(text.at(0).isUpper() != shift);
        }
    }
    return QDialog::eventFilter(watched, event);
}

void LoginDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    FocusFirstEmpty();
}

void LoginDialog::SlotLogIn()
{
    const QString pin = m_ui->pin_edit->text().trimmed();
    const QString password = m_ui->password_edit->text();
    if (pin.isEmpty()) {
        ShowProblem({LoginProblem::Kind::EmptyPin, QString(), QDateTime()});
    } else if (password.isEmpty()) {
        ShowProblem({LoginProblem::Kind::EmptyPassword, QString(), QDateTime()});
    } else {
        m_ui->show_password_button->setChecked(false);
        Q_EMIT SigLogIn(pin, password, m_ui->stay_box->isChecked());
    }
}

void LoginDialog::ShowPassword(bool shown)
{
    m_ui->password_edit->setEchoMode(shown ? QLineEdit::Normal : QLineEdit::Password);
    UpdateTexts();
}

void LoginDialog::SetCapsLock(bool on)
{
    m_ui->caps_label->setVisible(on);
}

void LoginDialog::UpdateTexts()
{
    const bool shown = m_ui->show_password_button->isChecked();
    m_ui->show_password_button->setText(shown ? tr("Hide") : tr("Show"));
    m_ui->show_password_button->setToolTip(shown ? tr("Hide the password") : tr("Show the password"));
    m_ui->login_button->setText(m_busy ? tr("Logging in…") : tr("Log in"));
    m_ui->stay_box->setToolTip(ToToolTip(m_noKeyStoreReason));
    m_ui->login_message->setText(LoginTexts::Describe(m_problem));
    const bool isFault = m_problem.kind != LoginProblem::Kind::SessionExpired &&
                         m_problem.kind != LoginProblem::Kind::SessionRefused;
    SetKind(m_ui->login_message, isFault ? QStringLiteral("error") : QStringLiteral("warning"));
    m_ui->login_message->setToolTip(ToToolTip(m_problem.detail));
    m_ui->login_message->setVisible(m_problem.kind != LoginProblem::Kind::None);
}

void LoginDialog::FocusFirstEmpty()
{
    (m_ui->pin_edit->text().isEmpty() ? m_ui->pin_edit : m_ui->password_edit)->setFocus();
}
