#pragma once

class ClientRouter;

/// Adds the URLs that open tabs to the client's own table. They go to the provided `ITabOpener` and fail
/// while there is none.
void AddTabRoutes(ClientRouter& router);
