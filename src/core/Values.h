// Building blocks of the document: values that copy cheaply, cost little while empty, and check every index.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/RunTimeError.h"

namespace Quillon::Core {

/// A value held once by all its copies until one of them is edited.
template <class T>
class Shared {
public:
    const T& Read() const { return held ? *held : Nothing(); }
    /// Unshares first. Do not keep the reference past a copy of the whole.
    T& Edit() {
        if (!held) {
            held = std::make_shared<T>();
        } else if (held.use_count() > 1) {
            held = std::make_shared<T>(*held);
        }
        return *held;
    }
    /// True when an edit needs no copy: the value is there and nobody else holds it.
    bool IsOwned() const { return held && held.use_count() == 1; }
    /// True when both share one value in memory: equal without looking.
    bool SameAs(const Shared& other) const { return held == other.held; }
    bool operator==(const Shared& other) const { return SameAs(other) || Read() == other.Read(); }

private:
    static const T& Nothing() {
        static const T nothing{};
        return nothing;
    }
    std::shared_ptr<T> held;
};

/// A value that takes room only once it was edited; copies are deep.
template <class T>
class Lazy {
public:
    Lazy() = default;
    Lazy(const Lazy& other) : held(other.held ? std::make_unique<T>(*other.held) : nullptr) {}
    Lazy(Lazy&&) noexcept = default;
    Lazy& operator=(const Lazy& other) {
        if (this != &other) held = other.held ? std::make_unique<T>(*other.held) : nullptr;
        return *this;
    }
    Lazy& operator=(Lazy&&) noexcept = default;
    ~Lazy() = default;

    const T& Read() const { return held ? *held : Nothing(); }
    T& Edit() {
        if (!held) held = std::make_unique<T>();
        return *held;
    }
    void Clear() { held.reset(); }
    bool IsDefault() const { return !held || *held == Nothing(); }
    bool operator==(const Lazy& other) const { return Read() == other.Read(); }

private:
    static const T& Nothing() {
        static const T nothing{};
        return nothing;
    }
    std::unique_ptr<T> held;
};

/// A fixed row of N values with checked indices.
template <class T, std::size_t N>
class Row {
public:
    static constexpr int Size = static_cast<int>(N);
    Row() = default;
    Row(std::initializer_list<T> values) { std::copy_n(values.begin(), std::min(N, values.size()), items.begin()); }

    template <class Index>
    const T& operator[](Index index) const {
        return items[Check(index)];
    }
    template <class Index>
    T& operator[](Index index) {
        return items[Check(index)];
    }
    auto begin() const { return items.begin(); }
    auto end() const { return items.end(); }
    auto begin() { return items.begin(); }
    auto end() { return items.end(); }
    bool operator==(const Row&) const = default;

private:
    template <class Index>
    static std::size_t Check(Index index) {
        if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, N)) RaiseSubscriptOutOfRange();
        return static_cast<std::size_t>(index);
    }
    std::array<T, N> items{};
};

/// N slots of which each takes room only once it was edited. An edited slot equals an untouched one when it holds
/// the default value.
template <class T, std::size_t N>
class Slots {
public:
    static constexpr int Size = static_cast<int>(N);
    template <class Index>
    const T& operator[](Index index) const {
        return items[index].Read();
    }
    template <class Index>
    T& Edit(Index index) {
        return items[index].Edit();
    }
    template <class Index>
    void Clear(Index index) {
        items[index].Clear();
    }
    template <class Index>
    bool IsDefault(Index index) const {
        return items[index].IsDefault();
    }
    bool operator==(const Slots&) const = default;

private:
    Row<Lazy<T>, N> items;
};

/// A growing array with checked indices.
template <class T>
class List {
public:
    List() = default;
    explicit List(std::size_t size) : items(size) {}
    List(std::initializer_list<T> values) : items(values) {}

    int Count() const { return static_cast<int>(items.size()); }
    int UpperBound() const { return Count() - 1; }
    template <class Index>
    const T& operator[](Index index) const {
        return items[Check(index)];
    }
    template <class Index>
    T& operator[](Index index) {
        return items[Check(index)];
    }
    /// Keeps the contents; new elements are default values.
    void Resize(int count) {
        if (count < 0) RaiseSubscriptOutOfRange();
        items.resize(static_cast<std::size_t>(count));
    }
    void Add(T value) { items.push_back(std::move(value)); }
    auto begin() const { return items.begin(); }
    auto end() const { return items.end(); }
    auto begin() { return items.begin(); }
    auto end() { return items.end(); }
    bool operator==(const List&) const = default;

private:
    template <class Index>
    std::size_t Check(Index index) const {
        if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, items.size())) RaiseSubscriptOutOfRange();
        return static_cast<std::size_t>(index);
    }
    std::vector<T> items;
};

/// A long array whose copies share every block that none of them edited: a copy of 1,000 elements costs 32 counted
/// pointers, an edit one block. Reading and editing look different: list[i] reads, list.Edit(i) edits.
template <class T>
class SharedList {
    static constexpr int BlockSize = 32;
    struct Block {
        std::array<T, BlockSize> Items{};
        bool operator==(const Block&) const = default;
    };

public:
    SharedList() = default;
    explicit SharedList(int size) { Resize(size); }

    int Count() const { return count; }
    int UpperBound() const { return count - 1; }
    template <class Index>
    const T& operator[](Index index) const {
        const int at = Check(index);
        return blocks[At(at / BlockSize)].Read().Items[At(at % BlockSize)];
    }
    template <class Index>
    T& Edit(Index index) {
        const int at = Check(index);
        return blocks[At(at / BlockSize)].Edit().Items[At(at % BlockSize)];
    }
    /// Keeps the contents; new elements are default values.
    void Resize(int newCount) {
        if (newCount < 0) RaiseSubscriptOutOfRange();
        const int dropFrom = newCount;
        const int dropTo = std::min(count, (newCount + BlockSize - 1) / BlockSize * BlockSize);
        for (int i = dropFrom; i < dropTo; ++i) {  // a later growth must find defaults in a block that stays
            blocks[At(i / BlockSize)].Edit().Items[At(i % BlockSize)] = T{};
        }
        blocks.resize(At((newCount + BlockSize - 1) / BlockSize));
        // Each block stands on its own from the start: caches kept in the elements must not meet in a common default.
        for (int block = (count + BlockSize - 1) / BlockSize; block < (newCount + BlockSize - 1) / BlockSize; ++block) {
            blocks[At(block)].Edit();
        }
        count = newCount;
    }
    void Add(T value) {
        Resize(count + 1);
        Edit(count - 1) = std::move(value);
    }
    bool operator==(const SharedList& other) const { return count == other.count && blocks == other.blocks; }

    class Iterator {
    public:
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        Iterator() = default;
        Iterator(const SharedList* of, int at) : list(of), index(at) {}
        const T& operator*() const { return (*list)[index]; }
        Iterator& operator++() {
            ++index;
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++index;
            return before;
        }
        bool operator==(const Iterator& other) const { return index == other.index; }

    private:
        const SharedList* list = nullptr;
        int index = 0;
    };
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, count}; }

private:
    static std::size_t At(int index) { return static_cast<std::size_t>(index); }
    template <class Index>
    int Check(Index index) const {
        if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, count)) RaiseSubscriptOutOfRange();
        return static_cast<int>(index);
    }
    std::vector<Shared<Block>> blocks;
    int count = 0;
};

}  // namespace Quillon::Core
