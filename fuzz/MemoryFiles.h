#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace korvel {

/// A disk in memory, so that a target runs thousands of inputs a second. One thread.
class MemoryFiles final : public FileSystem {
 public:
    void put(const std::filesystem::path& path, std::string_view bytes) {
        files_[path] = share(bytes);
    }

    bool exists(const std::filesystem::path& path) override { return files_.contains(path); }
    std::unique_ptr<InputFile> openForReading(const std::filesystem::path& path) override {
        const auto found = files_.find(path);
        return found == files_.end() ? nullptr : std::make_unique<Input>(found->second);
    }
    std::unique_ptr<RandomAccessFile> openRandomAccess(const std::filesystem::path& path) override {
        const auto found = files_.find(path);
        return found == files_.end() ? nullptr : std::make_unique<RandomAccess>(found->second);
    }
    std::unique_ptr<OutputFile> createBeside(const std::filesystem::path& target,
                                             std::filesystem::path& name) override {
        name = target;
        name += ".tmp" + std::to_string(++created_);
        return std::make_unique<Output>(files_[name] = share({}));
    }
    std::unique_ptr<OutputFile> openForAppending(const std::filesystem::path& path) override {
        auto& bytes = files_[path];
        if (!bytes)
            bytes = share({});
        return std::make_unique<Output>(bytes);
    }
    bool overwrite(const std::filesystem::path& path, std::uint64_t offset,
                   std::span<const std::uint8_t> bytes) override {
        const auto found = files_.find(path);
        if (found == files_.end() || offset + bytes.size() > found->second->size())
            return false;
        std::ranges::copy(bytes, found->second->begin() + static_cast<std::ptrdiff_t>(offset));
        return true;
    }
    bool rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
        auto moved = files_.extract(from);
        if (moved.empty())
            return false;
        files_[to] = moved.mapped();
        return true;
    }
    bool remove(const std::filesystem::path& path) override {
        files_.erase(path);
        return true;
    }
    void syncFolder(const std::filesystem::path& /*folder*/) override {}

 private:
    using Bytes = std::shared_ptr<std::string>;

    static Bytes share(std::string_view bytes) { return std::make_shared<std::string>(bytes); }

    /// Copies what there is from a place on.
    template <class To>
    static std::size_t copyFrom(const std::string& bytes, std::uint64_t offset,
                                std::span<To> room) {
        if (offset >= bytes.size())
            return 0;
        const std::size_t count = std::min<std::size_t>(room.size(), bytes.size() - offset);
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(offset), count, room.begin());
        return count;
    }

    struct Input final : InputFile {
        explicit Input(Bytes content) : bytes(std::move(content)) {}
        std::optional<std::size_t> read(std::span<char> room) override {
            const std::size_t count = copyFrom(*bytes, at, room);
            at += count;
            return count;
        }
        Bytes bytes;
        std::size_t at = 0;
    };
    struct RandomAccess final : RandomAccessFile {
        explicit RandomAccess(Bytes content) : bytes(std::move(content)) {}
        std::uint64_t size() const override { return bytes->size(); }
        std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> room) const override {
            return copyFrom(*bytes, offset, room);
        }
        Bytes bytes;
    };
    struct Output final : OutputFile {
        explicit Output(Bytes content) : bytes(std::move(content)) {}
        bool write(std::string_view more) override {
            bytes->append(more);
            return true;
        }
        bool flush() override { return true; }
        std::optional<std::uint64_t> size() const override { return bytes->size(); }
        bool cutTo(std::uint64_t size) override {
            bytes->resize(std::min<std::size_t>(bytes->size(), size));
            return true;
        }
        bool close() override { return true; }
        Bytes bytes;
    };

    std::map<std::filesystem::path, Bytes> files_;
    int created_ = 0;
};

}  // namespace korvel
