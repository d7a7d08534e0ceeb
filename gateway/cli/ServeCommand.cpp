#include "ServeCommand.h"

#include "CommandError.h"
#include "DatabaseOption.h"
#include "ListenAddress.h"
#include "demo/DemoPages.h"
#include "methods/AllMethods.h"
#include "server/AppKeyWatcher.h"
#include "server/HttpServer.h"
#include "store/StoreUrl.h"
#include "store/opener/OpenStore.h"

#include <CLI/CLI.hpp>
#include <spdlog/logger.h>

#include <csignal>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace TLGateway {

namespace {

// Each hash takes the memory of PasswordHasher::Cost, so these two bound what log-ins can take.
constexpr std::size_t HashThreads = 2;
constexpr std::size_t WaitingLogins = 64;
constexpr std::size_t WaitingRequests = 1024;

struct ServeOptions
{
    std::string listen;
    std::string logLevel = "info";
    bool hasDemoPages = false;
    int tokenLifetime = 720; // [h]
    int threads = 4;
};

// Each object uses those declared before it and ends before them: the workers finish before the server that
// takes their answers, and all of them before the store.
void Serve(const CommandContext& context, const ServeOptions& options)
{
    const ListenAddress address = ParseListenAddress(options.listen);
    context.logger->set_level(spdlog::level::from_str(options.logLevel));
#ifdef SIGPIPE
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN)); // the reader of the log may exit first
#endif

    OpenStoreOptions storeOptions;
    storeOptions.checkIntegrity = true;
    const std::unique_ptr<IStore> store = OpenStore(context.databaseUrl, storeOptions, context.logger);

    AppKeyRing keys;
    const AppKeyWatcher keyWatcher(*store, keys, context.logger);
    const PasswordHasher hasher;
    std::optional<DemoPages> pages;
    if (options.hasDemoPages) {
        pages.emplace();
    }

    WorkerPool hashers(HashThreads, WaitingLogins);
    WorkerPool workers(static_cast<std::size_t>(options.threads), WaitingRequests);
    MethodRegistry methods;
    AddAllMethods(methods, *store, hasher, hashers, static_cast<UnixTime>(options.tokenLifetime) * 3600);
    GatewayService service(keys, methods, *store, &SystemTime, context.logger);
    HttpRouter router(service, workers, pages ? &*pages : nullptr);

    HttpServer::Options serverOptions;
    serverOptions.address = address.host;
    serverOptions.port = address.port;
    HttpServer server(serverOptions, router, context.logger);
    context.logger->info("serving database {}", WithoutPassword(context.databaseUrl));
    context.out << "tl-gateway listening on http://" << address.HostForUrl() << ':' << server.Port()
                << std::endl;
    server.Run(true);

    // The server takes answers until no worker can give one.
    workers.Close();
    hashers.Close();
    store->Close();
    context.logger->info("stopped");
}

} // namespace

void AddServeCommand(CLI::App& app, CommandContext& context)
{
    const auto options = std::make_shared<ServeOptions>();
    CLI::App* serve = app.add_subcommand("serve", "Serve requests until SIGTERM or SIGINT");
    AddDatabaseOption(*serve, context);
    serve->add_option("--listen", options->listen, "IP address and port; port 0 picks a free one")
        ->required();
    serve->add_flag("--demo-pages", options->hasDemoPages, "Serve the demo merchant's pages below /demo/");
    serve->add_option("--token-lifetime", options->tokenLifetime, "How long a log-in lasts [hours]")
        ->check(CLI::Range(1, 87600))
        ->capture_default_str();
    serve->add_option("--threads", options->threads, "Threads that handle requests")
        ->check(CLI::Range(1, 64))
        ->capture_default_str();
    serve->add_option("--log-level", options->logLevel, "Least severe level logged to standard error")
        ->check(CLI::IsMember({"debug", "info", "warn", "error", "off"}))
        ->capture_default_str();
    serve->callback([&context, options] { Serve(context, *options); });
}

} // namespace TLGateway
