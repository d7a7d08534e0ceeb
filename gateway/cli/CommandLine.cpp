#include "cli/CommandLine.h"

#include "CatalogueCommands.h"
#include "CommandContext.h"
#include "ConfigCommands.h"
#include "DemoCommand.h"
#include "KeyCommands.h"
#include "ServeCommand.h"
#include "UserCommands.h"

#include <CLI/CLI.hpp>
#include <spdlog/logger.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <exception>
#include <iostream>
#include <memory>

namespace TLGateway {

namespace {

constexpr int Failure = 1;

std::shared_ptr<spdlog::logger> MakeLogger()
{
    auto logger =
        std::make_shared<spdlog::logger>("tl-gateway", std::make_shared<spdlog::sinks::stderr_sink_mt>());
    logger->set_pattern("%Y-%m-%dT%H:%M:%S.%eZ %l %v", spdlog::pattern_time_type::utc);
    logger->set_level(spdlog::level::warn);
    logger->flush_on(spdlog::level::info);
    return logger;
}

} // namespace

int RunCommandLine(int argc, const char* const* argv, std::istream& in, std::ostream& out)
{
    CommandContext context{in, out, MakeLogger(), {}};
    CLI::App app("The gateway: keeps the merchants' configurations and serves them to the client.",
                 "tl-gateway");
    app.require_subcommand(1);
    AddServeCommand(app, context);
    AddUserCommands(app, context);
    AddKeyCommands(app, context);
    AddConfigCommands(app, context);
    AddCatalogueCommands(app, context);
    AddDemoCommand(app, context);
    try {
        app.parse(argc, argv);
        out.flush();
        return 0;
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, std::cerr);
    } catch (const std::exception& error) {
        std::cerr << "tl-gateway: " << error.what() << std::endl;
        return Failure;
    }
}

} // namespace TLGateway
