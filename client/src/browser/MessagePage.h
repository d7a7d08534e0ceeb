#pragma once

#include "MessageContent.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QString>
#include <QtWidgets/QWidget>

class IconLabel;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// A tab's content where no page can be shown: says in plain words what happened, names the address and
/// offers at most one button. Texts are plain text.
class MessagePage final : public QWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit MessagePage(QWidget* parent = nullptr);

    void SetContent(const MessageContent& content);

    QString GetHeadline() const;
    QString GetText() const;
    QString GetAddress() const;
    QPushButton* GetButton() const noexcept;

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigButtonClicked();

private:
    QWidget* m_content;
    QVBoxLayout* m_column;
    IconLabel* m_icon;
    QLabel* m_headline;
    QLabel* m_text;
    QLineEdit* m_address;
    QLabel* m_detail;
    QPushButton* m_button;
};
