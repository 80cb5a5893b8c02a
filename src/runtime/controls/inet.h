#pragma once

#include "runtime/element.h"
#include "runtime/property.h"
#include "runtime/transfer.h"

#include <optional>
#include <string>

namespace lookfar {

class Form;

/// The design values of a transfer control.
struct InetDesign {
    /// Without effect, since the URL names the port.
    short RemotePort = 80;
    /// Seconds.
    short RequestTimeout = 60;
};

/// What `OpenURL` is asked for.
enum class DataType : short { icString = 0, icByteArray = 1 };

/// Fetches what stands behind a URL, one request at a time.
class Inet : public Element {
  public:
    Inet(Form& owner, const InetDesign& design);

    /// Performs a whole HTTP GET and gives back the body, decoded, while the message loop runs on.
    /// Throws a `Failure`: 35764 at once while another request is running, which is left alone;
    /// 35765 for a body without a byte; otherwise that of the transfer.
    DecodedBodyReference OpenURL(const std::string& url, DataType type);
    /// Ends the request in progress with a failure.
    void Cancel();

    /// 0: hosts are asked through the proxies that the environment names. 1: they are asked
    /// directly, whatever it names. Any other value counts as 0.
    Property<short> AccessType;
    /// Without effect, since the URL names the protocol.
    Property<short> Protocol;
    /// Seconds that a request may take as a whole.
    Property<short> RequestTimeout;

  private:
    bool is_busy_ = false;
    std::optional<TransferOutcome> outcome_;
};

} // namespace lookfar
