#include "browser/MessagePage.h"

#include "browser/IconLabel.h"
#include "browser/SymbolicIcon.h"

#include <QtGui/QFont>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int IconSize = 48;     // [px]
constexpr int ColumnWidth = 560; // [px]

QLabel* AddLabel(QVBoxLayout* column, const QString& name)
{
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    column->addWidget(label);
    return label;
}

} // namespace

MessagePage::MessagePage(QWidget* parent)
    : QWidget(parent), m_icon(new IconLabel(IconSize)), m_address(new QLineEdit), m_button(new QPushButton)
{
    setObjectName(QStringLiteral("message_page"));
    setAttribute(Qt::WA_StyledBackground);

    auto* content = new QWidget(this);
    content->setMaximumWidth(ColumnWidth);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(24, 24, 24, 24);
    column->setSpacing(8);
    column->addWidget(m_icon);
    column->addSpacing(8);
    m_headline = AddLabel(column, QStringLiteral("message_headline"));
    m_text = AddLabel(column, QStringLiteral("message_text"));
    // A field, because a long address has no blanks to break at, and to be copied as it is.
    m_address->setObjectName(QStringLiteral("message_address"));
    m_address->setReadOnly(true);
    m_address->setFrame(false);
    m_address->setTextMargins(-2, 0, 0, 0); // flush with the labels
    column->addWidget(m_address);
    column->addSpacing(8);
    m_button->setObjectName(QStringLiteral("message_button"));
    m_button->setProperty("primary", true);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addWidget(m_button);
    buttonRow->addStretch();
    column->addLayout(buttonRow);
    column->addSpacing(8);
    m_detail = AddLabel(column, QStringLiteral("message_detail"));

    QFont font = m_headline->font();
    font.setPointSizeF(font.pointSizeF() * 1.7);
    font.setWeight(QFont::DemiBold);
    m_headline->setFont(font);

    auto* across = new QHBoxLayout;
    across->addStretch(1);
    across->addWidget(content, 1000);
    across->addStretch(1);
    auto* down = new QVBoxLayout(this);
    down->setContentsMargins(0, 0, 0, 0);
    down->addStretch(2);
    down->addLayout(across);
    down->addStretch(3);

    connect(m_button, &QPushButton::clicked, this, &MessagePage::SigButtonClicked);
}

void MessagePage::SetContent(const QString& iconName, const QString& headline, const QString& text,
                             const QString& address, const QString& detail, const QString& button)
{
    m_icon->SetIcon(SymbolicIcon::Make(iconName));
    m_headline->setText(headline);
    m_text->setText(text);
    m_address->setText(address);
    m_address->setCursorPosition(0);
    m_address->setAccessibleName(tr("Address"));
    m_detail->setText(detail);
    m_button->setText(button);
    m_text->setVisible(!text.isEmpty());
    m_address->setVisible(!address.isEmpty());
    m_detail->setVisible(!detail.isEmpty());
    m_button->setVisible(!button.isEmpty());
    setAccessibleName(headline);
    setAccessibleDescription(text);
}

QString MessagePage::GetHeadline() const
{
    return m_headline->text();
}

QString MessagePage::GetText() const
{
    return m_text->text();
}

QString MessagePage::GetAddress() const
{
    return m_address->text();
}

QPushButton* MessagePage::GetButton() const noexcept
{
    return m_button;
}
