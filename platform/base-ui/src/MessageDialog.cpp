#include "MessageDialog.h"

#include "base-ui/TLPushButton.h"

#include "Scaled.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace {

struct KnownButton
{
    QMessageBox::StandardButton answer;
    const char* objectName;
    const char* text;
};

// In the order of the buttons.
constexpr KnownButton KnownButtons[] = {
    {QMessageBox::Ok, "ok_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "OK")},
    {QMessageBox::Yes, "yes_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Yes")},
    {QMessageBox::YesToAll, "yes_to_all_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Yes to all")},
    {QMessageBox::Save, "save_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Save")},
    {QMessageBox::SaveAll, "save_all_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Save all")},
    {QMessageBox::Open, "open_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Open")},
    {QMessageBox::Apply, "apply_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Apply")},
    {QMessageBox::Retry, "retry_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Try again")},
    {QMessageBox::Ignore, "ignore_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Ignore")},
    {QMessageBox::Reset, "reset_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Reset")},
    {QMessageBox::RestoreDefaults, "restore_defaults_button",
     QT_TRANSLATE_NOOP("PackagedMsgBox", "Restore defaults")},
    {QMessageBox::Help, "help_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Help")},
    {QMessageBox::Discard, "discard_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Discard")},
    {QMessageBox::Abort, "abort_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Abort")},
    {QMessageBox::No, "no_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "No")},
    {QMessageBox::NoToAll, "no_to_all_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "No to all")},
    {QMessageBox::Close, "close_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Close")},
    {QMessageBox::Cancel, "cancel_button", QT_TRANSLATE_NOOP("PackagedMsgBox", "Cancel")}};

const KnownButton* Find(QMessageBox::StandardButton answer)
{
    for (const KnownButton& known : KnownButtons) {
        if (known.answer == answer) {
            return &known;
        }
    }
    return nullptr;
}

} // namespace

MessageDialog::MessageDialog(const QString& text, QMessageBox::StandardButtons buttons,
                             const QStringList& buttonTexts, TextStyle style, QWidget* parent)
    : TLBaseDialog(parent)
    , m_answer(GetEscapeAnswer(buttons))
    , m_label(new QLabel(text, GetContentWidget()))
    , m_buttonLayout(new QHBoxLayout)
{
    setObjectName(QStringLiteral("packaged_msg_box"));
    setAccessibleName(text);
    SetTitleText(QGuiApplication::applicationDisplayName());

    m_label->setObjectName(QStringLiteral("text_label"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    if (style == TextStyle::Strong) {
        QFont font = m_label->font();
        font.setBold(true);
        m_label->setFont(font);
    }

    auto* layout = new QVBoxLayout(GetContentWidget());
    layout->addWidget(m_label, 1);
    layout->addLayout(m_buttonLayout);
    m_buttonLayout->addStretch();
    for (const KnownButton& known : KnownButtons) {
        if (buttons.testFlag(known.answer)) {
            AddButton(known.answer, buttonTexts.value(m_choices.size()));
        }
    }
    if (m_choices.isEmpty()) {
        AddButton(QMessageBox::Ok, buttonTexts.value(0));
    }
    m_buttonLayout->addStretch();
    Retranslate();

    m_choices.constFirst().button->SetButtonType(ButtonType::Primary);
    m_choices.constFirst().button->setDefault(true);
    m_choices.constFirst().button->setFocus();
    MessageDialog::AdjustForDpi();
}

MessageDialog::~MessageDialog() = default;

QMessageBox::StandardButton MessageDialog::GetAnswer() const noexcept
{
    return m_answer;
}

QMessageBox::StandardButton MessageDialog::GetEscapeAnswer(QMessageBox::StandardButtons buttons)
{
    if (buttons.testFlag(QMessageBox::Cancel)) {
        return QMessageBox::Cancel;
    }
    if (buttons.testFlag(QMessageBox::No)) {
        return QMessageBox::No;
    }
    QMessageBox::StandardButton last = QMessageBox::Ok;
    for (const KnownButton& known : KnownButtons) {
        if (buttons.testFlag(known.answer)) {
            last = known.answer;
        }
    }
    return last;
}

void MessageDialog::AddButton(QMessageBox::StandardButton answer, const QString& text)
{
    auto* button = new TLPushButton(GetContentWidget());
    button->setObjectName(QLatin1String(Find(answer)->objectName));
    button->m_sizeClass = 1;
    button->SetButtonType(ButtonType::Secondary);
    button->installEventFilter(this);
    connect(button, &QPushButton::clicked, this, [this, answer] {
        m_answer = answer;
        done(answer);
    });
    m_buttonLayout->addWidget(button);
    m_choices.append({answer, button, text});
}

void MessageDialog::reject()
{
    done(m_answer);
}

void MessageDialog::AdjustForDpi()
{
    GetContentWidget()->layout()->setContentsMargins(Scaled(24), Scaled(12), Scaled(24), Scaled(24));
    GetContentWidget()->layout()->setSpacing(Scaled(24));
    m_buttonLayout->setSpacing(Scaled(10));
    setMinimumWidth(Scaled(360));
    m_label->setMaximumWidth(Scaled(480));
    // Later, when title bar and buttons have adjusted themselves, too.
    if (isVisible()) {
        QMetaObject::invokeMethod(this, &MessageDialog::AdjustAroundCentre, Qt::QueuedConnection);
    }
}

void MessageDialog::AdjustAroundCentre()
{
    const QPoint centre = geometry().center();
    adjustSize();
    QRect place = rect();
    place.moveCenter(centre);
    move(place.topLeft());
}

void MessageDialog::Retranslate()
{
    for (const Choice& choice : qAsConst(m_choices)) {
        choice.button->setText(choice.text.isEmpty()
                                   ? QCoreApplication::translate("PackagedMsgBox", Find(choice.answer)->text)
                                   : choice.text);
    }
}

void MessageDialog::MoveFocus(QObject* from, int step)
{
    for (int i = 0; i < m_choices.size(); ++i) {
        if (m_choices.at(i).button == from && i + step >= 0 && i + step < m_choices.size()) {
            m_choices.at(i + step).button->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

bool MessageDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down) {
            const bool forward = key == Qt::Key_Down || (key == Qt::Key_Right) == isLeftToRight();
            MoveFocus(watched, key != Qt::Key_Up && forward ? 1 : -1);
            return true;
        }
    }
    return TLBaseDialog::eventFilter(watched, event);
}

void MessageDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
    TLBaseDialog::changeEvent(event);
}

void MessageDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(m_label->text());
        return;
    }
    TLBaseDialog::keyPressEvent(event);
}
