#include "clientpages/ClientPage.h"

#include "base/DpiTool.h"

#include <QtCore/QEvent>
#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

ClientPage::ClientPage(QWidget* parent)
    : SettingItemBaseWidget(parent), IDpiAdapter(true), m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->addStretch();
}

ClientPage::~ClientPage() = default;

void ClientPage::SetKeyword(const QString& keyword)
{
    m_keyword = keyword;
    for (const Shown& shown : qAsConst(m_labels)) {
        SetLabelHighlighted(shown.label, keyword);
    }
}

void ClientPage::AdjustForDpi()
{
    const auto scaled = &DpiTool::ScaleDefault;
    m_column->setSpacing(scaled(16));
    for (QVBoxLayout* const card : qAsConst(m_cards)) {
        card->setContentsMargins(scaled(16), scaled(6), scaled(16), scaled(6));
        card->setSpacing(0);
    }
    for (const Row& row : qAsConst(m_rows)) {
        row.layout->setContentsMargins(0, scaled(10), 0, scaled(10));
        row.layout->setSpacing(scaled(24));
        row.texts->setSpacing(scaled(2));
    }
}

void ClientPage::ShowState() {}

void ClientPage::AddCard()
{
    auto* card = new QFrame(this);
    card->setObjectName(QStringLiteral("settings_card"));
    m_cards.append(new QVBoxLayout(card));
    m_column->insertWidget(m_column->count() - 1, card);
}

void ClientPage::AddRow(const Text& name, const Text& explanation, QWidget* control)
{
    auto* row = new QHBoxLayout;
    auto* texts = new QVBoxLayout;
    QLabel* const label = AddLabel(QStringLiteral("settings_row_name"), name);
    texts->addWidget(label);
    if (explanation) {
        texts->addWidget(AddLabel(QStringLiteral("settings_row_text"), explanation));
    }
    row->addLayout(texts, 1);
    if (control != nullptr) {
        row->addWidget(control, 0, Qt::AlignVCenter);
        AddTexts([control, name] { control->setAccessibleName(name()); });
    }
    m_cards.last()->addLayout(row);
    m_rows.append({row, texts});
    AdjustForDpi();
}

QLabel* ClientPage::AddParagraph(const Text& text)
{
    QLabel* const label = AddLabel(QStringLiteral("settings_row_text"), text);
    auto* row = new QHBoxLayout;
    auto* texts = new QVBoxLayout;
    texts->addWidget(label);
    row->addLayout(texts, 1);
    m_cards.last()->addLayout(row);
    m_rows.append({row, texts});
    AdjustForDpi();
    return label;
}

void ClientPage::AddWide(QWidget* widget)
{
    auto* row = new QHBoxLayout;
    auto* texts = new QVBoxLayout;
    texts->addWidget(widget);
    row->addLayout(texts, 1);
    m_cards.last()->addLayout(row);
    m_rows.append({row, texts});
    AdjustForDpi();
}

void ClientPage::AddTexts(const std::function<void()>& apply)
{
    m_texts.append(apply);
    apply();
}

void ClientPage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
    SettingItemBaseWidget::changeEvent(event);
}

QLabel* ClientPage::AddLabel(const QString& objectName, const Text& text)
{
    auto* label = new QLabel(this);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setText(text());
    m_labels.append({label, text});
    return label;
}

void ClientPage::Retranslate()
{
    for (const Shown& shown : qAsConst(m_labels)) {
        shown.label->setText(shown.text());
        if (!m_keyword.isEmpty()) {
            SetLabelHighlighted(shown.label, m_keyword);
        }
    }
    for (const std::function<void()>& apply : qAsConst(m_texts)) {
        apply();
    }
}
