// Decodes pictures for Lookfar, which starts this program and talks to it over a socket. Whatever a
// camera sends is read here and nowhere else, after the process has locked itself in.

#include "decoder/channel.h"
#include "decoder/messages.h"
#include "decoder/program/confinement.h"
#include "decoder/program/service.h"
#include "decoder/program/warm_up.h"

#include <QtGlobal>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <system_error>

namespace {

using namespace lookfar::decoder;

bool is_started_by_lookfar() {
    int type = 0;
    socklen_t size = sizeof type;
    return ::getsockopt(decoder_socket, SOL_SOCKET, SO_TYPE, &type, &size) == 0 &&
           type == SOCK_SEQPACKET;
}

/// Should the program die before this, then the socket tells.
void die_with_the_program() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL, 0, 0, 0);
}

/// Nobody reads them, and Qt would look for places to write them to.
void drop_warnings() {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
}

Greeting make_ready() {
    Greeting greeting{.formats = warm_up()};
    try {
        confine(decoder_socket);
    } catch (const std::system_error& error) {
        greeting.error = error.code().value();
    }
    return greeting;
}

} // namespace

int main() {
    if (!is_started_by_lookfar()) {
        std::fputs("lookfar-decoder is a part of lookfar, which starts it.\n", stderr);
        return EXIT_FAILURE;
    }
    die_with_the_program();
    drop_warnings();
    const Greeting greeting = make_ready();
    if (send(decoder_socket, greeting) && greeting.error == 0)
        serve(decoder_socket);
    std::_Exit(EXIT_SUCCESS);
}
