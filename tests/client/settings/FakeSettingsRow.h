#pragma once

#include "frame-core/SettingItemBaseWidget.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

/// A row: a check box without text, the entry's text, and a button that shows under the mouse.
class FakeSettingsRow final : public SettingItemBaseWidget
{
    Q_OBJECT

public:
    FakeSettingsRow(const QString& text, bool checked, QWidget* parent);
    ~FakeSettingsRow() override;

    void SetKeyword(const QString& word) override;

    QCheckBox* box;
    QLabel* label;
    QPushButton* remove;
    QString entry;
    QString keyword;

Q_SIGNALS:
    void SigChanged();
    void SigDelete(FakeSettingsRow* row);

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
};
