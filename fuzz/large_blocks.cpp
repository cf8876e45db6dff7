#include <sanitizer/lsan_interface.h>
#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>

// Large blocks of memory, kept for the next taker of the same size. An engine reserves a few of
// them, and the address sanitizer's book-keeping of each costs far more time than a short script
// takes to run. Blocks of other sizes are the sanitizer's as ever.
namespace {

constexpr std::size_t kLarge = std::size_t{1} << 20;  // bytes

struct Block {
    void* address = nullptr;
    std::size_t size = 0;
    bool is_taken = false;
};

std::array<Block, 8> blocks;

void* map(std::size_t size) {
    void* const address =
        ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (address == MAP_FAILED) {
        return nullptr;
    }
    __lsan_register_root_region(address, size);  // what it points to is no leak
    return address;
}

// Null when there is no room for one more.
void* take_block(std::size_t size) {
    auto found = std::ranges::find_if(
        blocks, [size](const Block& block) { return !block.is_taken && block.size == size; });
    if (found == blocks.end()) {
        found = std::ranges::find(blocks, false, &Block::is_taken);
        if (found == blocks.end()) {
            return nullptr;
        }
        if (found->address != nullptr) {
            __lsan_unregister_root_region(found->address, found->size);
            ::munmap(found->address, found->size);
        }
        *found = {.address = map(size), .size = size};
    }
    found->is_taken = found->address != nullptr;
    return found->address;
}

bool give_back(void* address) {
    const auto found = std::ranges::find_if(blocks, [address](const Block& block) {
        return block.is_taken && block.address == address;
    });
    if (found == blocks.end()) {
        return false;
    }
    found->is_taken = false;
    return true;
}

}  // namespace

// The fuzzer never frees its own objects, which are the sanitizer's to look at because of the
// operators below.
const char* __lsan_default_suppressions() {
    return "leak:fuzzer::";
}

// All other forms of the operators stay the sanitizer's, and mix with these.
extern "C" const char* __asan_default_options() {
    return "alloc_dealloc_mismatch=0";
}

void* operator new(std::size_t size) {
    void* address = size >= kLarge ? take_block(size) : nullptr;
    if (address == nullptr) {
        address = std::malloc(size);
    }
    if (address == nullptr) {
        throw std::bad_alloc();
    }
    return address;
}

void operator delete(void* address) noexcept {
    if (!give_back(address)) {
        std::free(address);
    }
}

void operator delete(void* address, std::size_t /*size*/) noexcept {
    operator delete(address);
}
