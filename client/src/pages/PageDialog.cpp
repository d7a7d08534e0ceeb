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
constexpr int LongText = 2000; // what a page may say [characters]

} // namespace

PageDialog::PageDialog(Kind kind, const QUrl& origin, const QString& text, const QString& proposal,
                       bool offerSilence, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("page_dialog"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    const bool logIn = kind == Kind::LogIn;
    const QString host = origin.host().isEmpty() ? tr("This page") : AddressInput::ToDisplayHost(origin);
    const bool leave = kind == Kind::Leave;
    setWindowTitle(logIn   ? tr("Log-in at a site")
                   : leave ? tr("Leave the page?")
                           : tr("Message from a page"));

    auto* head = new QLabel((logIn   ? tr("“%1” asks for a user name and a password.")
                             : leave ? tr("Leave the page at “%1”?")
                                     : tr("The page at “%1” says:"))
                                .arg(host));
    head->setObjectName(QStringLiteral("page_dialog_head"));
    auto* body =
        new QLabel(leave ? tr("Changes that you made there may not be saved.") : text.left(LongText));
    body->setObjectName(QStringLiteral("page_dialog_text"));
    for (QLabel* label : {head, body}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    body->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont font = head->font();
    font.setWeight(QFont::DemiBold);
    head->setFont(font);

    auto* column = new QVBoxLayout(this);
    column->addWidget(head);
    column->addWidget(body);
    body->setVisible(!body->text().isEmpty());
    if (kind == Kind::Prompt || logIn) {
        m_input = new QLineEdit(proposal);
        m_input->setAccessibleName(logIn ? tr("User name") : tr("Answer"));
        m_input->selectAll();
        column->addWidget(m_input);
    }
    if (logIn) {
        m_password = new QLineEdit;
        m_password->setEchoMode(QLineEdit::Password);
        m_password->setAccessibleName(tr("Password"));
        for (QLineEdit* field : {m_input, m_password})
            field->setPlaceholderText(field->accessibleName());
        column->addWidget(m_password);
        if (origin.scheme() != QLatin1String("https")) {
            auto* warning = new QLabel(tr("The connection is not encrypted: others may read what you type."));
            warning->setObjectName(QStringLiteral("page_dialog_warning"));
            warning->setWordWrap(true);
            column->addWidget(warning);
        }
    }
    if (offerSilence) {
        m_silence = new QCheckBox(tr("Let this page show no more messages"));
        column->addWidget(m_silence);
    }
    m_buttons = new QDialogButtonBox(kind == Kind::Alert ? QDialogButtonBox::Ok
                                                         : QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_buttons->button(QDialogButtonBox::Ok)->setText(logIn ? tr("Log in") : leave ? tr("Leave") : tr("OK"));
    m_buttons->button(QDialogButtonBox::Ok)->setProperty("primary", true);
    if (QPushButton* cancel = m_buttons->button(QDialogButtonBox::Cancel))
        cancel->setText(leave ? tr("Stay") : tr("Cancel"));
    column->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    PageDialog::AdjustForDpi();
}

void PageDialog::AdjustForDpi()
{
    layout()->setContentsMargins(Scaled(QMargins(24, 24, 24, 16)));
    layout()->setSpacing(Scaled(12));
    m_buttons->setContentsMargins(0, Scaled(4), 0, 0);
    m_buttons->layout()->setSpacing(Scaled(8));
    setMinimumWidth(Scaled(Width));
    if (isVisible())
        adjustSize();
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
