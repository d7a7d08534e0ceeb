#include "clientpages/MonitoringPage.h"

#include "clientpages/MonitorEventModel.h"
#include "settings/SettingsServices.h"

#include "base-ui/TLPushButton.h"
#include "base/DpiTool.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

MonitoringPage::MonitoringPage(const SettingsServices* services)
    : m_services(services)
    , m_model(new MonitorEventModel(this))
    , m_table(new QTableView(this))
    , m_clear(new TLPushButton(this))
{
    m_table->setObjectName(QStringLiteral("monitor_table"));
    m_table->setModel(m_model);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setFrameShape(QFrame::NoFrame);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    for (const int column : {0, 2}) {
        m_table->horizontalHeader()->setSectionResizeMode(column, QHeaderView::Fixed);
    }
    m_table->setTextElideMode(Qt::ElideMiddle); // ids differ at their ends
    m_table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_clear->setObjectName(QStringLiteral("clear_events_button"));
    m_clear->m_sizeClass = 1;
    m_clear->SetButtonType(ButtonType::Secondary);
    m_clear->setAutoDefault(false);
    m_clear->setVisible(static_cast<bool>(services->clearEvents));

    AddCard();
    AddRow([] { return tr("Recorded actions"); },
           [] { return tr("What you do on settings pages is recorded on this computer."); }, m_clear);
    AddTexts([this] {
        m_clear->setText(tr("Clear"));
        m_clear->setAccessibleName(tr("Clear the recorded actions"));
        m_table->setAccessibleName(tr("Recorded actions"));
        m_model->Retranslate();
    });
    AddCard();
    AddWide(m_table);
    connect(m_clear, &QPushButton::clicked, this, [this] {
        m_services->clearEvents();
        Update();
    });
    MonitoringPage::AdjustForDpi();
    Update();
}

MonitoringPage::~MonitoringPage() = default;

QStringList MonitoringPage::GetKeywords()
{
    return {tr("Monitoring"), tr("Recorded actions"), tr("Events"), tr("Log")};
}

void MonitoringPage::ShowState()
{
    // Events come in bunches; each would mean reading everything.
    if (m_pending) {
        return;
    }
    m_pending = true;
    QMetaObject::invokeMethod(this, &MonitoringPage::Update, Qt::QueuedConnection);
}

void MonitoringPage::AdjustForDpi()
{
    const auto scaled = &DpiTool::ScaleDefault;
    ClientPage::AdjustForDpi();
    m_table->verticalHeader()->setDefaultSectionSize(scaled(30));
    m_table->verticalHeader()->setMinimumSectionSize(scaled(30));
    m_table->setMinimumHeight(scaled(360));
    m_table->setColumnWidth(
        0, m_table->fontMetrics().horizontalAdvance(QStringLiteral("2000-00-00 00:00:00")) + scaled(16));
    m_table->setColumnWidth(2, scaled(110));
}

void MonitoringPage::Update()
{
    m_pending = false;
    m_model->SetEvents(m_services->loadEvents ? m_services->loadEvents() : QVector<MonitorEvent>());
    m_clear->setEnabled(m_model->rowCount() > 0);
    if (m_model->rowCount() > 0) {
        m_table->setCurrentIndex(m_model->index(0, 0));
    }
}
