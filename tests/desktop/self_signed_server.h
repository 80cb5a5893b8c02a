#pragma once

#include <QProcess>
#include <QStringList>

#include <stdexcept>
#include <string>

namespace lookfar::desktop {

/// A server on 127.0.0.1 that speaks TLS under a certificate which it signed itself. Key and
/// certificate are left in the current directory.
class SelfSignedServer {
  public:
    SelfSignedServer() {
        make_certificate();
        server_.start("openssl", {"s_server", "-accept", "127.0.0.1:0", "-key", "key.pem", "-cert",
                                  "certificate.pem", "-www"});
        port_ = announced_port();
    }
    SelfSignedServer(const SelfSignedServer&) = delete;
    SelfSignedServer& operator=(const SelfSignedServer&) = delete;
    ~SelfSignedServer() {
        server_.kill();
        server_.waitForFinished();
    }

    std::string url() const { return "https://127.0.0.1:" + port_ + "/"; }

  private:
    static void make_certificate() {
        const QStringList arguments{
            "req",     "-x509",   "-newkey", "rsa:2048",        "-nodes", "-days",        "1",
            "-keyout", "key.pem", "-out",    "certificate.pem", "-subj",  "/CN=127.0.0.1"};
        QProcess maker;
        maker.start("openssl", arguments);
        if (!maker.waitForFinished() || maker.exitCode() != 0)
            throw std::runtime_error("The certificate can't be made.");
    }

    /// The server tells its port in the line "ACCEPT 127.0.0.1:port".
    std::string announced_port() {
        std::string output;
        while (server_.waitForReadyRead()) {
            output += server_.readAllStandardOutput().toStdString();
            const auto address = output.find("ACCEPT 127.0.0.1:");
            const auto end = output.find('\n', address);
            if (address != std::string::npos && end != std::string::npos) {
                const auto port = output.find(':', address) + 1;
                return output.substr(port, end - port);
            }
        }
        throw std::runtime_error("The server doesn't start.");
    }

    QProcess server_;
    std::string port_;
};

} // namespace lookfar::desktop
