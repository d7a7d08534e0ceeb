#include "store/rows/WriteJob.h"

#include "store/rows/DatabaseError.h"
#include "store/rows/WriteRefused.h"

#include <spdlog/logger.h>

namespace TLGateway {

void RunWrite(WriteJob& job, IConnection& connection, const std::string& database, spdlog::logger& logger)
{
    try {
        job.write(connection);
    } catch (const WriteRefused& refused) {
        job.failure = refused.Failure();
    } catch (const DatabaseError&) {
        throw;
    } catch (const std::exception& error) {
        job.failure = WriteFailure(WriteFailure::Reason::Internal);
        logger.error("database {}: {} failed: {}", database, job.what, error.what());
    }
}

} // namespace TLGateway
