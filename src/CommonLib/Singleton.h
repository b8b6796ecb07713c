// One object of a class per process, made on first use from whatever thread comes first.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>

// A static object of this type holds the one T. T's constructor may be private with this class as a friend.
template <class T>
class Singleton {
public:
    // Tests the created flag outside the lock and once more inside it, so that only first use takes the lock.
    T& Get() {
        if (!created.load(std::memory_order_acquire)) {
            const std::lock_guard guard(lock);
            if (!created.load(std::memory_order_relaxed)) {
                instance.reset(new T);
                created.store(true, std::memory_order_release);
            }
        }
        return *instance;
    }

    // Frees the object; a later Get makes a new one. No other thread may still use the old one.
    void Destroy() {
        const std::lock_guard guard(lock);
        created.store(false, std::memory_order_release);
        instance.reset();
    }

private:
    std::atomic<bool> created = false;
    std::mutex lock;
    std::unique_ptr<T> instance;
};
