#include "MessagePage.h"

#include "look/IconLabel.h"
#include "look/ScaledWidget.h"
#include "look/SymbolicIcon.h"

#include <QtGui/QFont>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int IconSize = 48;     // [px]
constexpr int ColumnWidth = 560; // [px]
constexpr int Gap = 8;           // [px]

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
    : QWidget(parent)
    , m_content(new QWidget(this))
    , m_column(new QVBoxLayout(m_content))
    , m_icon(new IconLabel(IconSize))
    , m_address(new QLineEdit)
    , m_button(new QPushButton)
{
    setObjectName(QStringLiteral("message_page"));
    setAttribute(Qt::WA_StyledBackground);

    m_column->addWidget(m_icon);
    m_column->addSpacing(Gap);
    m_headline = AddLabel(m_column, QStringLiteral("message_headline"));
    m_text = AddLabel(m_column, QStringLiteral("message_text"));
    // A field: a long address has no blanks to break at, and is copied as it stands.
    m_address->setObjectName(QStringLiteral("message_address"));
    m_address->setReadOnly(true);
    m_address->setFrame(false);
    m_address->setTextMargins(-2, 0, 0, 0); // flush with the labels
    m_column->addWidget(m_address);
    m_column->addSpacing(Gap);
    m_button->setObjectName(QStringLiteral("message_button"));
    m_button->setProperty("primary", true);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addWidget(m_button);
    buttonRow->addStretch();
    m_column->addLayout(buttonRow);
    m_column->addSpacing(Gap);
    m_detail = AddLabel(m_column, QStringLiteral("message_detail"));

    auto* across = new QHBoxLayout;
    across->addStretch(1);
    across->addWidget(m_content, 1000);
    across->addStretch(1);
    auto* down = new QVBoxLayout(this);
    down->setContentsMargins(0, 0, 0, 0);
    down->addStretch(2);
    down->addLayout(across);
    down->addStretch(3);

    connect(m_button, &QPushButton::clicked, this, &MessagePage::SigButtonClicked);
    MessagePage::AdjustForDpi();
}

void MessagePage::AdjustForDpi()
{
    SetRelativeFont(m_headline, 1.7, QFont::DemiBold);
    m_content->setMaximumWidth(Scaled(ColumnWidth));
    m_column->setContentsMargins(Scaled(QMargins(24, 24, 24, 24)));
    m_column->setSpacing(Scaled(Gap));
    for (int i = 0; i < m_column->count(); ++i) {
        if (QSpacerItem* gap = m_column->itemAt(i)->spacerItem()) {
            gap->changeSize(0, Scaled(Gap), QSizePolicy::Minimum, QSizePolicy::Fixed);
        }
    }
    m_column->invalidate();
}

void MessagePage::SetContent(const MessageContent& content)
{
    m_icon->SetIcon(SymbolicIcon::Make(content.icon));
    m_headline->setText(content.headline);
    m_text->setText(content.text);
    m_address->setText(content.address);
    m_address->setCursorPosition(0);
    m_address->setAccessibleName(tr("Address"));
    m_detail->setText(content.detail);
    m_button->setText(content.button);
    m_text->setVisible(!content.text.isEmpty());
    m_address->setVisible(!content.address.isEmpty());
    m_detail->setVisible(!content.detail.isEmpty());
    m_button->setVisible(!content.button.isEmpty());
    setAccessibleName(content.headline);
    setAccessibleDescription(content.text);
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
