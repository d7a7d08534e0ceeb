#include "FakeSettingsRow.h"

#include <QtWidgets/QHBoxLayout>

FakeSettingsRow::FakeSettingsRow(const QString& text, bool checked, QWidget* parent)
    : SettingItemBaseWidget(parent)
    , box(new QCheckBox(this))
    , label(new QLabel(text, this))
    , remove(new QPushButton(this))
    , entry(text)
{
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(box);
    layout->addWidget(label, 1);
    layout->addWidget(remove);
    remove->setObjectName(QStringLiteral("delete_button"));
    remove->hide();
    box->setChecked(checked);
    connect(box, &QCheckBox::clicked, this, &FakeSettingsRow::SigChanged);
    connect(remove, &QPushButton::clicked, this, [this] { Q_EMIT SigDelete(this); });
}

FakeSettingsRow::~FakeSettingsRow() = default;

void FakeSettingsRow::SetKeyword(const QString& word)
{
    keyword = word;
    SetLabelHighlighted(label, word);
}

void FakeSettingsRow::enterEvent(QEvent*)
{
    remove->show();
}

void FakeSettingsRow::leaveEvent(QEvent*)
{
    remove->hide();
}
