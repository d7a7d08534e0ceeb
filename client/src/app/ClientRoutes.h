#pragma once

class ClientRouter;

/// Puts the URLs that open tabs into the client's own table; they go to the provided `ITabOpener` and
/// fail while there is none.
void AddTabRoutes(ClientRouter& router);
