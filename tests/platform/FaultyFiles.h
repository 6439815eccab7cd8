#pragma once

#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "platform/FileSystem.h"

namespace korvel {

/// The system's files, of which the n-th operation fails: an opening, a writing (half of it gets through), a flushing,
/// a cutting, a closing, a renaming or a reading. A disk that is lost for good fails from then on in all of them, but
/// still lets files be removed.
class FaultyFiles final : public FileSystem {
 public:
    explicit FaultyFiles(int failing = 0, bool forGood = false) : failing_(failing), forGood_(forGood) {}

    bool hasFailed() const { return failing_ != 0 && count_ >= failing_; }
    /// What was done, one word each.
    const std::string& done() const { return done_; }
    /// Called before each operation.
    std::function<void()> before;

    bool exists(const std::filesystem::path& path) override { return system_.exists(path); }
    std::unique_ptr<InputFile> openForReading(const std::filesystem::path& path) override {
        return opened<Input, InputFile>("read", [&] { return system_.openForReading(path); });
    }
    std::unique_ptr<RandomAccessFile> openRandomAccess(const std::filesystem::path& path) override {
        return opened<RandomAccess, RandomAccessFile>("read", [&] { return system_.openRandomAccess(path); });
    }
    std::unique_ptr<OutputFile> createBeside(
        const std::filesystem::path& target, std::filesystem::path& name) override {
        return opened<Output, OutputFile>("create", [&] { return system_.createBeside(target, name); });
    }
    std::unique_ptr<OutputFile> openForAppending(const std::filesystem::path& path) override {
        return opened<Output, OutputFile>("append", [&] { return system_.openForAppending(path); });
    }
    bool overwrite(
        const std::filesystem::path& path, std::uint64_t offset, std::span<const std::uint8_t> bytes) override {
        return passes("overwrite") && system_.overwrite(path, offset, bytes);
    }
    bool rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
        return passes("rename") && system_.rename(from, to);
    }
    bool remove(const std::filesystem::path& path) override { return system_.remove(path); }
    void syncFolder(const std::filesystem::path& folder) override {
        done_ += "folder ";
        system_.syncFolder(folder);
    }

 private:
    template <class File>
    struct Kept {
        FaultyFiles& disk;
        std::unique_ptr<File> file;
    };
    struct Input final : InputFile, Kept<InputFile> {
        explicit Input(Kept kept) : Kept(std::move(kept)) {}
        std::optional<std::size_t> read(std::span<char> room) override {
            return disk.passes("get") ? file->read(room) : std::nullopt;
        }
    };
    struct RandomAccess final : RandomAccessFile, Kept<RandomAccessFile> {
        explicit RandomAccess(Kept kept) : Kept(std::move(kept)) {}
        std::uint64_t size() const override { return file->size(); }
        std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> room) const override {
            return disk.passes("get") ? file->readAt(offset, room) : 0;
        }
    };
    struct Output final : OutputFile, Kept<OutputFile> {
        explicit Output(Kept kept) : Kept(std::move(kept)) {}
        bool write(std::string_view bytes) override {
            const bool whole = disk.passes("write");
            return file->write(whole ? bytes : bytes.substr(0, bytes.size() / 2)) && whole;
        }
        bool flush() override { return disk.passes("flush") && file->flush(); }
        std::optional<std::uint64_t> size() const override { return file->size(); }
        bool cutTo(std::uint64_t size) override { return disk.passes("cut") && file->cutTo(size); }
        bool close() override {
            const bool closes = disk.passes("close");
            return file->close() && closes;
        }
    };

    bool passes(const char* operation) {
        if (before) before();
        done_.append(operation).append(" ");
        ++count_;
        return failing_ == 0 || (forGood_ ? count_ < failing_ : count_ != failing_);
    }
    template <class Wrapper, class File, class Open>
    std::unique_ptr<File> opened(const char* operation, Open open) {
        std::unique_ptr<File> file = passes(operation) ? open() : nullptr;
        return file ? std::make_unique<Wrapper>(Kept<File>{*this, std::move(file)}) : nullptr;
    }

    FileSystem& system_ = systemFileSystem();
    int failing_;
    bool forGood_;
    int count_ = 0;
    std::string done_;
};

/// Calls `attempt` with a disk whose first operation fails, then the second, and so on until all of them have been
/// through: once each for a passing fault and for one that stays.
template <class Attempt>
void atEveryFault(const Attempt& attempt) {
    for (const bool forGood : {false, true}) {
        bool failed = true;
        for (int n = 1; failed; ++n) {
            ASSERT_LT(n, 1000) << "never done";
            FaultyFiles disk(n, forGood);
            const testing::ScopedTrace trace(
                __FILE__, __LINE__, std::string(forGood ? "from operation " : "at operation ") + std::to_string(n));
            attempt(disk);
            failed = disk.hasFailed();
        }
    }
}

}  // namespace korvel
