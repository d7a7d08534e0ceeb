#include "FakeKeyStore.h"

#include <utility>

void FakeKeyStore::AskAvailable(AvailableAnswer answer)
{
    m_waiting.push_back([this, answer = std::move(answer)] {
        answer(available, available ? QString() : QStringLiteral("There is no key store here."));
    });
}

void FakeKeyStore::Read(const QString& name, ReadAnswer answer)
{
    m_waiting.push_back([this, name, answer = std::move(answer)] { answer(secrets.value(name)); });
}

void FakeKeyStore::Write(const QString& name, const QString& secret, DoneAnswer answer)
{
    m_waiting.push_back([this, name, secret, answer = std::move(answer)] {
        if (!refusesToWrite) {
            secrets.insert(name, secret);
        }
        answer(!refusesToWrite);
    });
}

void FakeKeyStore::Remove(const QString& name, DoneAnswer answer)
{
    m_waiting.push_back([this, name, answer = std::move(answer)] {
        secrets.remove(name);
        answer(true);
    });
}

void FakeKeyStore::Answer()
{
    while (!m_waiting.empty()) {
        const std::vector<std::function<void()>> waiting = std::exchange(m_waiting, {});
        for (const std::function<void()>& give : waiting) {
            give();
        }
    }
}
