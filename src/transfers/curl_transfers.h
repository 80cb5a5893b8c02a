#pragma once

#include "runtime/transfer.h"

#include <functional>
#include <memory>

namespace lookfar {

/// Fetches pictures with HTTP GETs on one worker thread, which also attends to their decoder.
/// Connections are kept and used again by later transfers from the same host. Everything here, and
/// the transfers handed out, belong to the main thread.
///
/// Addresses are read as browsers read them (`address_of`). Only http and https are spoken, also
/// after a redirect. A user name and password in the address are told once, by the Basic or Digest
/// scheme, to a host that asks for them; no other host gets them, nor the same one by another
/// protocol or port. Certificates are checked against those that libcurl was built to find on the
/// machine, in a folder and a file; a file that SSL_CERT_FILE names stands in that file's place. No
/// cookies are kept. Proxies are those that the environment names in the variables that libcurl
/// reads, if the request asks for them. Compressed bodies are unpacked. A body that is cut off, or
/// can't be unpacked, is decoded as it came; where that gives no picture, the transfer has failed.
/// A stream of pictures gives its first whole one, and the transfer ends there. HTTP/2 is spoken
/// where a host offers it with https.
///
/// Failures are those of `address_of` and of `exchange_failures.h`, and one for a status 304 that
/// nobody asked for; none has an empty text.
class CurlTransfers {
  public:
    /// Runs work on the main thread later. Called on any thread.
    using Post = std::function<void(std::function<void()>)>;

    /// The decoder is used on the worker's thread alone; hosts are told its media types. Throws a
    /// Failure if libcurl cannot be started.
    CurlTransfers(Post post, std::unique_ptr<PictureDecoder> decoder);
    CurlTransfers(const CurlTransfers&) = delete;
    CurlTransfers& operator=(const CurlTransfers&) = delete;
    /// Abandons the transfers in progress and returns without waiting for any host.
    ~CurlTransfers();

    /// Starts a GET and returns at once. `done` is posted exactly once, whatever is wrong with
    /// the request, unless the transfer is abandoned before. A timeout of zero or less counts as
    /// one millisecond.
    std::unique_ptr<Transfer> start(TransferRequest request, TransferDone done);

  private:
    class Worker;
    class Handle;

    std::shared_ptr<Worker> worker_;
};

} // namespace lookfar
