#pragma once

#include <QByteArrayView>

#include <xcb/xcb.h>

/// The X server of this program, for requests that the toolkit cannot make. Main thread.
namespace XConnection {

/// The toolkit's own connection; null where the program's windows are not on an X server.
xcb_connection_t *ofThisProgram();

/// The server's number for a name; XCB_NONE when it does not answer.
xcb_atom_t atom(xcb_connection_t *connection, QByteArrayView name);

} // namespace XConnection
