#include "pages/PageDialog.h"

#include "look/Scaled.h"
#include "pages/AddressInput.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int Width = 440;     // [px]
constexpr int MostText = 2000; // that a page may say [characters]

} // namespace

PageDialog::PageDialog(Kind kind, const QUrl& origin, const QString& text, const QString& proposal,
                       bool offerSilence, QWidget* parent)
    : QDialog(parent), m_column(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("page_dialog"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    const QString host = origin.host().isEmpty() ? tr("This page") : AddressInput::ToDisplayHost(origin);
    switch (kind) {
    case Kind::LogIn:
        setWindowTitle(tr("Log in to a site"));
        AddTexts(tr("“%1” asks for a user name and password.").arg(host), text);
        AddInput(tr("User name"), proposal);
        AddPassword(origin.scheme() == QLatin1String("https"));
        AddButtons(tr("Log in"), tr("Cancel"));
        break;
    case Kind::Leave:
        setWindowTitle(tr("Leave the page?"));
        AddTexts(tr("Leave the page at “%1”?").arg(host), tr("Changes you made there may not be saved."));
        AddSilence(offerSilence);
        AddButtons(tr("Leave"), tr("Stay"));
        break;
    case Kind::Alert:
    case Kind::Confirm:
    case Kind::Prompt:
        setWindowTitle(tr("Message from a page"));
        AddTexts(tr("The page at “%1” says:").arg(host), text);
        if (kind == Kind::Prompt) {
            AddInput(tr("Answer"), proposal);
        }
        AddSilence(offerSilence);
        AddButtons(tr("OK"), kind == Kind::Alert ? QString() : tr("Cancel"));
        break;
    }
    PageDialog::AdjustForDpi();
}

void PageDialog::AdjustForDpi()
{
    m_column->setContentsMargins(Scaled(QMargins(24, 24, 24, 16)));
    m_column->setSpacing(Scaled(12));
    m_buttons->setContentsMargins(0, Scaled(4), 0, 0);
    m_buttons->layout()->setSpacing(Scaled(8));
    setMinimumWidth(Scaled(Width));
    if (isVisible()) {
        adjustSize();
    }
}

QString PageDialog::GetInput() const
{
    return m_input ? m_input->text() : QString();
}

QString PageDialog::GetPassword() const
{
    return m_password ? m_password->text() : QString();
}

bool PageDialog::IsSilenceWanted() const
{
    return m_silence && m_silence->isChecked();
}

void PageDialog::AddTexts(const QString& head, const QString& text)
{
    auto* const headLabel = new QLabel(head);
    headLabel->setObjectName(QStringLiteral("page_dialog_head"));
    QFont font = headLabel->font();
    font.setWeight(QFont::DemiBold);
    headLabel->setFont(font);

    auto* const textLabel = new QLabel(text.left(MostText));
    textLabel->setObjectName(QStringLiteral("page_dialog_text"));
    textLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);

    for (QLabel* const label : {headLabel, textLabel}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        m_column->addWidget(label);
    }
    textLabel->setVisible(!text.isEmpty());
}

void PageDialog::AddInput(const QString& name, const QString& proposal)
{
    m_input = new QLineEdit(proposal);
    m_input->setAccessibleName(name);
    m_input->selectAll();
    m_column->addWidget(m_input);
}

void PageDialog::AddPassword(bool isEncrypted)
{
    m_password = new QLineEdit;
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setAccessibleName(tr("Password"));
    for (QLineEdit* const field : {m_input, m_password}) {
        field->setPlaceholderText(field->accessibleName());
    }
    m_column->addWidget(m_password);
    if (isEncrypted) {
        return;
    }
    auto* const warning = new QLabel(tr("The connection is not encrypted: others may read what you type."));
    warning->setObjectName(QStringLiteral("page_dialog_warning"));
    warning->setWordWrap(true);
    m_column->addWidget(warning);
}

void PageDialog::AddSilence(bool isOffered)
{
    if (isOffered) {
        m_silence = new QCheckBox(tr("Stop this page from showing messages"));
        m_column->addWidget(m_silence);
    }
}

void PageDialog::AddButtons(const QString& accept, const QString& reject)
{
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    m_buttons->button(QDialogButtonBox::Ok)->setText(accept);
    m_buttons->button(QDialogButtonBox::Ok)->setProperty("primary", true);
    if (!reject.isEmpty()) {
        m_buttons->addButton(QDialogButtonBox::Cancel)->setText(reject);
    }
    m_column->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}
