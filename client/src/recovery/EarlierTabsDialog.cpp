#include "EarlierTabsDialog.h"

#include "EarlierTabsDelegate.h"
#include "EarlierTabsModel.h"
#include "look/ScaledWidget.h"

#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeView>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr QSize Roomy(640, 560);    // [px]
constexpr QSize Smallest(440, 280); // [px]

QLabel* MakeLabel(const QString& name)
{
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

EarlierTabsDialog::EarlierTabsDialog(const QVector<EarlierTabSet>& sets, const PictureLoader& loadPicture,
                                     QWidget* parent)
    : QDialog(parent)
    , m_model(new EarlierTabsModel(sets, loadPicture, this))
    , m_intro(MakeLabel(QStringLiteral("earlier_tabs_intro")))
    , m_empty(MakeLabel(QStringLiteral("earlier_tabs_empty")))
    , m_tree(new QTreeView)
    , m_buttons(new QHBoxLayout)
    , m_open(new QPushButton)
    , m_close(new QPushButton)
{
    setObjectName(QStringLiteral("earlier_tabs_dialog"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_tree->setObjectName(QStringLiteral("earlier_tabs_tree"));
    m_tree->setModel(m_model);
    m_tree->setItemDelegate(new EarlierTabsDelegate(m_tree));
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setAnimated(false);
    m_tree->setMouseTracking(true);
    m_tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tree->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_tree->setTabKeyNavigation(false);
    m_tree->setExpandsOnDoubleClick(true);
    m_tree->setCurrentIndex(m_model->index(0, 0));
    m_tree->expand(m_model->index(0, 0));
    m_empty->setAlignment(Qt::AlignCenter);
    m_open->setObjectName(QStringLiteral("earlier_tabs_open"));
    m_open->setProperty("primary", true);
    m_close->setObjectName(QStringLiteral("earlier_tabs_close"));

    const bool empty = sets.isEmpty();
    m_open->setDefault(!empty);
    m_close->setAutoDefault(empty);
    m_close->setDefault(empty);
    m_intro->setVisible(!empty);
    m_tree->setVisible(!empty);
    m_open->setVisible(!empty);
    m_empty->setVisible(empty);

    m_buttons->addStretch();
    m_buttons->addWidget(m_open);
    m_buttons->addWidget(m_close);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_intro);
    column->addWidget(m_tree, 1);
    column->addWidget(m_empty, 1);
    column->addLayout(m_buttons);
    setTabOrder(m_tree, m_open);
    setTabOrder(m_open, m_close);
    (empty ? static_cast<QWidget*>(m_close) : m_tree)->setFocus(Qt::OtherFocusReason);

    connect(m_model, &EarlierTabsModel::SigTickedChanged, this, &EarlierTabsDialog::UpdateOpen);
    connect(m_open, &QPushButton::clicked, this, &EarlierTabsDialog::OpenTicked);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    EarlierTabsDialog::AdjustForDpi();
    Retranslate();
}

void EarlierTabsDialog::AdjustForDpi()
{
    m_tree->setIndentation(Scaled(20));
    m_tree->doItemsLayout();
    m_buttons->setSpacing(Scaled(8));
    layout()->setContentsMargins(Scaled(QMargins(24, 20, 24, 16)));
    layout()->setSpacing(Scaled(12));
    setMinimumSize(ScaledToScreen(this, Smallest));
}

void EarlierTabsDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
}

void EarlierTabsDialog::showEvent(QShowEvent* event)
{
    if (!testAttribute(Qt::WA_Resized)) {
        resize(ScaledToScreen(this, m_tree->isHidden() ? Smallest : Roomy));
    }
    QDialog::showEvent(event);
}

void EarlierTabsDialog::OpenTicked()
{
    const QVector<TabRecord> tabs = m_model->GetTicked();
    if (tabs.isEmpty()) {
        return;
    }
    Q_EMIT SigOpen(tabs);
    accept();
}

void EarlierTabsDialog::UpdateOpen()
{
    const int count = m_model->GetTickedCount();
    m_open->setEnabled(count > 0);
    m_open->setText(count == 0   ? tr("Open")
                    : count == 1 ? tr("Open 1 tab")
                                 : tr("Open %1 tabs").arg(QLocale().toString(count)));
}

void EarlierTabsDialog::Retranslate()
{
    setWindowTitle(tr("Earlier tabs"));
    m_intro->setText(
        tr("Tabs that were open when the client was interrupted or restarted. Tick those that you "
           "want to open."));
    m_empty->setText(
        tr("There are no earlier tabs.\n\nWhen the client is interrupted, the tabs that were open "
           "are kept here."));
    m_tree->setAccessibleName(tr("Earlier tabs"));
    m_close->setText(tr("Close"));
    m_model->Retranslate();
    UpdateOpen();
}
