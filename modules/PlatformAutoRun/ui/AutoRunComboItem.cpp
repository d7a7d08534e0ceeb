#include "ui/AutoRunComboItem.h"

#include "ui_AutoRunComboItem.h"

AutoRunComboItem::AutoRunComboItem(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::AutoRunComboItem>())
{
    m_ui->setupUi(this);
}

AutoRunComboItem::~AutoRunComboItem() = default;
