#include "login/SystemKeyStore.h"

#include <QtCore/QTimer>

#include <memory>

#include <qt5keychain/keychain.h>

namespace {

const QString Service = QStringLiteral("tl-client");

// The system may ask the user to unlock the store, which takes a while.
constexpr int AnswerTimeout = 60000; // [ms]
constexpr int ProbeTimeout = 5000;   // [ms]

QString NoStoreReason(const QString& detail)
{
    const QString reason = SystemKeyStore::tr("This system has no key store to save a session in.");
    return detail.isEmpty() ? reason : reason + QLatin1Char('\n') + detail;
}

/// Starts the job and calls `finished` once, with null after `timeout` [ms].
void Run(QObject* context, QKeychain::Job* job, int timeout, std::function<void(QKeychain::Job*)> finished)
{
    job->setInsecureFallback(false);
    job->setAutoDelete(true);
    const auto answered = std::make_shared<bool>(false);
    const auto once = [answered, finished = std::move(finished)](QKeychain::Job* result) {
        if (!*answered) {
            *answered = true;
            finished(result);
        }
    };
    // Queued, because some back ends finish inside start(). The event loop deletes the job only after the
    // calls that were queued before.
    QObject::connect(job, &QKeychain::Job::finished, context, once, Qt::QueuedConnection);
    QTimer::singleShot(timeout, context, [once] { once(nullptr); });
    job->start();
}

} // namespace

SystemKeyStore::SystemKeyStore(QObject* parent) : QObject(parent) {}

void SystemKeyStore::AskAvailable(AvailableAnswer answer)
{
    auto* const job = new QKeychain::ReadPasswordJob(Service, this);
    job->setKey(QStringLiteral("probe"));
    Run(this, job, ProbeTimeout, [answer = std::move(answer)](QKeychain::Job* finished) {
        if (!finished) {
            answer(false, NoStoreReason(SystemKeyStore::tr("The key store is not responding.")));
        } else if (finished->error() == QKeychain::NoError || finished->error() == QKeychain::EntryNotFound) {
            answer(true, QString());
        } else {
            answer(false, NoStoreReason(finished->errorString()));
        }
    });
}

void SystemKeyStore::Read(const QString& name, ReadAnswer answer)
{
    auto* const job = new QKeychain::ReadPasswordJob(Service, this);
    job->setKey(name);
    Run(this, job, AnswerTimeout, [answer = std::move(answer)](QKeychain::Job* finished) {
        const auto* const read = static_cast<QKeychain::ReadPasswordJob*>(finished);
        answer(read && read->error() == QKeychain::NoError ? read->textData() : QString());
    });
}

void SystemKeyStore::Write(const QString& name, const QString& secret, DoneAnswer answer)
{
    auto* const job = new QKeychain::WritePasswordJob(Service, this);
    job->setKey(name);
    job->setTextData(secret);
    Run(this, job, AnswerTimeout, [answer = std::move(answer)](QKeychain::Job* finished) {
        answer(finished && finished->error() == QKeychain::NoError);
    });
}

void SystemKeyStore::Remove(const QString& name, DoneAnswer answer)
{
    auto* const job = new QKeychain::DeletePasswordJob(Service, this);
    job->setKey(name);
    Run(this, job, AnswerTimeout, [answer = std::move(answer)](QKeychain::Job* finished) {
        answer(finished &&
               (finished->error() == QKeychain::NoError || finished->error() == QKeychain::EntryNotFound));
    });
}
