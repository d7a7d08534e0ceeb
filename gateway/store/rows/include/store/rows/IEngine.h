#pragma once

#include "store/IStore.h"
#include "store/rows/IConnection.h"
#include "store/rows/IDialect.h"

#include <functional>
#include <string>

namespace TLGateway {

// The database below a RowStore: lends connections for reading and does the writes one after another.
// Any thread.
class IEngine
{
public:
    using Work = std::function<void(IConnection& connection)>;

    IEngine() = default;
    IEngine(const IEngine&) = delete;
    IEngine& operator=(const IEngine&) = delete;
    // Calls Close.
    virtual ~IEngine() = default;

    // Does the writes that wait; later ones fail (Closing).
    virtual void Close() = 0;

    [[nodiscard]] virtual const IDialect& Dialect() const noexcept = 0;

    // Runs `read` before it returns, and again when the connection is lost meanwhile. Throws StoreError;
    // `what` names the read there.
    virtual void Read(const char* what, const Work& read) = 0;

    // Queues `write`, which may run several times, each time in a transaction from which nothing of the run
    // before is left. It throws WriteRefused to be undone alone. Until the commit no other gateway changes
    // what belongs to the user `pin`; an empty pin locks nobody. `what` names the write in the log.
    virtual void Write(std::string what, std::string pin, Work write, IStore::WriteDone done) = 0;
};

} // namespace TLGateway
