#include "decoder/decoder_failures.h"

#include <system_error>

namespace lookfar::decoder {

namespace {

Failure not_decoded(const std::string& reason) {
    return Failure(FailureKind::invalid_picture, "The picture can't be decoded: " + reason + ".");
}

std::string words_for(int error) {
    return std::generic_category().message(error);
}

} // namespace

Failure has_failed() {
    return not_decoded("the decoder has failed");
}

Failure takes_too_long() {
    return not_decoded("that takes too long");
}

Failure cannot_be_started(int error) {
    return not_decoded("the decoder can't be started: " + words_for(error));
}

Failure cannot_be_locked_in(int error) {
    return not_decoded("the decoder can't be locked in: " + words_for(error));
}

Failure ends_at_its_start() {
    return not_decoded("the decoder ends at its start");
}

} // namespace lookfar::decoder
