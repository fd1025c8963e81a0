#ifndef ZELMORA_CONFIG_SYNCSINGLETON_H
#define ZELMORA_CONFIG_SYNCSINGLETON_H

#include "../toolkit/export.h"

#include <QMutex>
#include <QMutexLocker>

#include <atomic>

/// The one process-wide instance of @p T: made by its default constructor at first use, exactly once whatever
/// the number of threads that ask, and deleted at process exit.
///
/// At exit the instances go in the reverse order of their completion: a T whose constructor uses another
/// singleton is deleted before that one. So is a static object that was made after the instance; one that was made
/// before it goes later, and must not use the instance in its destructor: instance() then still gives where it was.
/// registerDestruction() counts as the completion, where it came first.
///
/// instance() is safe to call from any thread; what the instance itself allows is its own affair.
///
/// Its symbols are visible to the whole process, in code compiled with -fvisibility=hidden too, so that plug-ins which
/// each link the library can share the instance (docs/library.md says when they do). A symbol is no more visible than
/// the types in its name: T is a class declared with Q_DECL_EXPORT where plug-ins share it.
template <class T>
class ZELMORA_EXPORT SyncSingleton {
public:
    SyncSingleton() = delete;

    /// The instance, made if there is none yet. Never null, owned by the template.
    static T* instance()
    {
        T* const existing = instance_pointer.load(std::memory_order_acquire);
        if (existing)
            return existing;
        createInstance();
        return instance_pointer.load(std::memory_order_acquire);
    }

    /// Makes the instance if there is none yet. When T's constructor throws, there is still none afterwards,
    /// and the exception passes on.
    static void createInstance()
    {
        const QMutexLocker locker(&instance_mutex());
        if (instance_pointer.load(std::memory_order_acquire))
            return;
        T* const created = new T;
        instance_destroyer().instance = created;
        instance_pointer.store(created, std::memory_order_release);
    }

    /// Makes no instance, but has the one that may be made later go after all that is completed from now on: for the
    /// constructor of an object that may first use the instance when others have long been made.
    static void registerDestruction() { instance_destroyer(); }

private:
    template <class U>
    struct Destroyer {
        ~Destroyer() { delete instance; }
        U* instance = nullptr;
    };

    // Functions with a static inside, so that each is made on first need: a static initialiser of any source
    // file may ask for the instance.
    static QMutex& instance_mutex()
    {
        static QMutex mutex;
        return mutex;
    }

    static Destroyer<T>& instance_destroyer()
    {
        static Destroyer<T> destroyer;
        return destroyer;
    }

    static inline std::atomic<T*> instance_pointer {nullptr};
};

#endif
