#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

namespace vbscript {

// What values of the language share: texts, arrays and objects, counted by hand since a script
// runs on one thread and an object must end exactly when its last reference goes. Owned by the
// references to it; made by `make`.
class Counted {
  public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    void retain() noexcept { ++references_; }

    void release() noexcept {
        if (--references_ == 0) {
            last_reference_gone();
        }
    }

    [[nodiscard]] bool is_shared() const noexcept { return references_ > 1; }

    [[nodiscard]] std::uint32_t references() const noexcept { return references_; }

  protected:
    virtual ~Counted() = default;

    // Ends the object. An object with a last wish overrides it, and may come alive again by a
    // reference that it gives away.
    virtual void last_reference_gone() noexcept { delete this; }

  private:
    std::uint32_t references_ = 0;
};

// One counted reference, or none.
template <typename T>
class Ref {
  public:
    Ref() noexcept = default;

    Ref(std::nullptr_t) noexcept {}

    explicit Ref(T* object) noexcept : object_(object) {
        if (object_ != nullptr) {
            object_->retain();
        }
    }

    Ref(const Ref& other) noexcept : Ref(other.object_) {}

    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}

    template <typename Derived>
    requires std::is_convertible_v<Derived*, T*> Ref(Ref<Derived> other)
    noexcept : object_(other.detach()) {}

    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    ~Ref() {
        if (object_ != nullptr) {
            object_->release();
        }
    }

    [[nodiscard]] T* get() const noexcept { return object_; }

    T& operator*() const noexcept { return *object_; }

    T* operator->() const noexcept { return object_; }

    explicit operator bool() const noexcept { return object_ != nullptr; }

    // Gives the reference away; whoever takes it must release it.
    [[nodiscard]] T* detach() noexcept { return std::exchange(object_, nullptr); }

    friend bool operator==(const Ref& left, const Ref& right) noexcept {
        return left.object_ == right.object_;
    }

  private:
    T* object_ = nullptr;
};

template <typename T, typename... Arguments>
[[nodiscard]] Ref<T> make(Arguments&&... arguments) {
    return Ref<T>(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace vbscript
