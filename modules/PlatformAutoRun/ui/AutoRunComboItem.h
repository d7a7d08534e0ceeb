#pragma once

#include <QtWidgets/QWidget>

#include <memory>

namespace Ui {
class AutoRunComboItem;
}

/// An empty widget with a name for the theme.
class AutoRunComboItem final : public QWidget
{
    Q_OBJECT

public:
    explicit AutoRunComboItem(QWidget* parent = nullptr);
    ~AutoRunComboItem() override;

private:
    Q_DISABLE_COPY(AutoRunComboItem)

    std::unique_ptr<Ui::AutoRunComboItem> m_ui;
};
