#include "decoder/memory_file.h"

#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>

namespace lookfar::decoder {

Descriptor make_memory_file(std::size_t size) {
    Descriptor file(::memfd_create("lookfar", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!file || ::ftruncate(file.number(), static_cast<off_t>(size)) != 0 ||
        ::fcntl(file.number(), F_ADD_SEALS, F_SEAL_SHRINK) != 0)
        throw std::bad_alloc();
    return file;
}

bool is_memory_file(const Descriptor& descriptor, std::size_t least_size) {
    const int seals = ::fcntl(descriptor.number(), F_GET_SEALS);
    struct stat status{};
    return seals != -1 && (seals & F_SEAL_SHRINK) != 0 &&
           ::fstat(descriptor.number(), &status) == 0 &&
           static_cast<std::size_t>(status.st_size) >= least_size;
}

Mapping::Mapping(const Descriptor& file, std::size_t size, Access access) : size_(size) {
    const int protection = access == Access::write ? PROT_READ | PROT_WRITE : PROT_READ;
    // All pages are used, and cost less when they come at once.
    void* const place =
        ::mmap(nullptr, size, protection, MAP_SHARED | MAP_POPULATE, file.number(), 0);
    if (place == MAP_FAILED)
        throw std::bad_alloc();
    data_ = static_cast<std::uint8_t*>(place);
}

Mapping::~Mapping() {
    ::munmap(data_, size_);
}

} // namespace lookfar::decoder
