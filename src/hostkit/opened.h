// Holders for what the host hands out, so that every open is paired with a close.
#pragma once

#include <nrx/database.h>

// An object opened from its id; closes it at the end of the scope. Empty when
// the object could not be opened as a T (another class, erased, held elsewhere).
template <class T>
class Opened {
public:
    Opened() = default;
    Opened(NcDbObjectId id, NcOpenMode mode) { ncdbOpenObject(object_, id, mode); }
    // Takes over an object that a table or an iterator opened.
    explicit Opened(T* object) : object_(object) { }
    Opened(Opened&& other) noexcept : object_(std::exchange(other.object_, nullptr)) { }
    Opened& operator=(Opened&& other) noexcept
    {
        if (this != &other) {
            close();
            object_ = std::exchange(other.object_, nullptr);
        }
        return *this;
    }
    ~Opened() { close(); }

    void close()
    {
        if (object_)
            object_->close();
        object_ = nullptr;
    }
    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    T* object_ = nullptr;
};

// An object made with new: deleted unless the host took it. Once it has an id
// it is closed instead.
template <class T>
class Made {
public:
    explicit Made(T* object) : object_(object) { }
    Made(const Made&) = delete;
    Made& operator=(const Made&) = delete;
    ~Made()
    {
        if (!object_)
            return;
        if (object_->objectId().isNull())
            delete object_;
        else
            object_->close();
    }
    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }

private:
    T* object_;
};
