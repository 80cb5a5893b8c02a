#include "decoder/kept_files.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <utility>

namespace lookfar::decoder {

namespace {

enum class Owner { nobody, program, decoder };

/// One of the places for a kept file, which may be empty.
struct Place {
    std::shared_ptr<Mapping> file = nullptr;
    Owner owner = Owner::nobody;

    bool has(std::size_t byte_count, Owner of) const {
        return file && owner == of && file->size() >= byte_count;
    }
    /// Is idle, and not wasted by half.
    bool fits(std::size_t byte_count) const {
        return has(byte_count, Owner::nobody) && file->size() / 2 <= byte_count;
    }
};

} // namespace

class KeptFiles::Files {
  public:
    std::uint32_t give_idle() {
        const std::lock_guard lock(mutex_);
        std::uint32_t given = 0;
        for (std::uint32_t number = 0; number < max_kept_files; ++number)
            if (places_[number].has(0, Owner::nobody)) {
                places_[number].owner = Owner::decoder;
                given |= 1U << number;
            }
        return given;
    }

    void reclaim() {
        const std::lock_guard lock(mutex_);
        for (Place& place : places_)
            if (place.owner == Owner::decoder)
                place.owner = Owner::nobody;
    }

    void drop(std::uint32_t files) {
        const std::lock_guard lock(mutex_);
        for (std::uint32_t number = 0; number < max_kept_files; ++number)
            if ((files & 1U << number) != 0)
                places_[number] = {};
    }

    void keep(std::uint32_t number, std::shared_ptr<Mapping> file) {
        const std::lock_guard lock(mutex_);
        places_[number] = {.file = std::move(file), .owner = Owner::decoder};
    }

    std::shared_ptr<Mapping> use(std::uint32_t number, std::size_t byte_count) {
        const std::lock_guard lock(mutex_);
        Place& place = places_[number];
        return place.has(byte_count, Owner::decoder) ? used(place) : nullptr;
    }

    std::shared_ptr<Mapping> use_any(std::size_t byte_count) {
        const std::lock_guard lock(mutex_);
        const auto place = std::ranges::find_if(
            places_, [byte_count](const Place& each) { return each.fits(byte_count); });
        return place == places_.end() ? nullptr : used(*place);
    }

    void let_go(const std::shared_ptr<Mapping>& file) {
        const std::lock_guard lock(mutex_);
        const auto place = std::ranges::find(places_, file, &Place::file);
        if (place != places_.end())
            place->owner = Owner::nobody;
    }

    void forget() {
        const std::lock_guard lock(mutex_);
        places_ = {};
    }

  private:
    static std::shared_ptr<Mapping> used(Place& place) {
        place.owner = Owner::program;
        return place.file;
    }

    std::mutex mutex_;
    std::array<Place, max_kept_files> places_;
};

/// A file in use.
struct KeptFiles::Loan {
    Loan(std::shared_ptr<Files> of, std::shared_ptr<Mapping> used)
        : files(std::move(of)), file(std::move(used)) {}
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;
    ~Loan() { files->let_go(file); }

    /// Null for no file.
    static std::shared_ptr<std::uint8_t[]> bytes_of(const std::shared_ptr<Files>& files,
                                                    std::shared_ptr<Mapping> file) {
        if (!file)
            return nullptr;
        const auto loan = std::make_shared<Loan>(files, std::move(file));
        return {loan, loan->file->data()};
    }

    std::shared_ptr<Files> files;
    std::shared_ptr<Mapping> file;
};

KeptFiles::KeptFiles() : files_(std::make_shared<Files>()) {}

std::uint32_t KeptFiles::give_idle() const {
    return files_->give_idle();
}

void KeptFiles::reclaim() const {
    files_->reclaim();
}

void KeptFiles::drop(std::uint32_t files) const {
    files_->drop(files);
}

void KeptFiles::keep(std::uint32_t number, std::shared_ptr<Mapping> file) const {
    files_->keep(number, std::move(file));
}

std::shared_ptr<std::uint8_t[]> KeptFiles::use(std::uint32_t number, std::size_t byte_count) const {
    return Loan::bytes_of(files_, files_->use(number, byte_count));
}

void KeptFiles::forget() const {
    files_->forget();
}

PixelAllocator KeptFiles::allocator() const {
    return [files = files_](std::size_t byte_count) {
        auto bytes = Loan::bytes_of(files, files->use_any(byte_count));
        return bytes ? bytes : allocate_pixels(byte_count);
    };
}

} // namespace lookfar::decoder
