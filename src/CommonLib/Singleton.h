// One object of a class per process, made on first use from whatever thread comes first.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

// A static object of this type holds the one T. T's constructor may be private with this class as a friend.
// An object that nobody destroys lives until the process is gone: a worker may still use it at the very end.
template <class T>
class Singleton {
public:
    // Tests the created flag outside the lock and once more inside it, so that only first use takes the lock.
    T& Get() {
        if (!created.load(std::memory_order_acquire)) {
            const std::lock_guard guard(lock);
            if (!created.load(std::memory_order_relaxed)) {
                instance = std::unique_ptr<T>(new T).release();
                created.store(true, std::memory_order_release);
            }
        }
        return *instance;
    }

    // Frees the object; a later Get makes a new one. No other thread may still use the old one.
    void Destroy() {
        const std::lock_guard guard(lock);
        created.store(false, std::memory_order_release);
        const std::unique_ptr<T> last(std::exchange(instance, nullptr));
    }

private:
    std::atomic<bool> created = false;
    std::mutex lock;
    T* instance = nullptr;
};
