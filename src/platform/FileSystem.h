// The one way from the core to the disk. Whatever the program does to a file it does through a FileSystem, so that a
// test can stand between and fail, or end the process at, any single call.
//
// Paths are absolute and raw bytes without NUL. Every operation is one attempt: nothing retries, logs or throws; a
// failure comes back as the kernel's errno. All may be called from any thread, but one open file or folder is one
// thread's at a time. Open files and folders close when they are destroyed; they must not outlive their FileSystem.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/Error.h"
#include "platform/Instant.h"

namespace vellomar {

enum class FileType { regular, directory, symlink, other };

// Which file a path leads to. Two paths with one identity are one file: a hard link, a bind mount, a volume that
// ignores case.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    bool operator==(const FileIdentity&) const = default;
};

struct FileStatus {
    FileType type = FileType::other;
    std::int64_t size = 0;  // bytes
    FileIdentity identity;
    std::uint32_t links = 1;  // names that lead to it
    Instant modified;
    Instant statusChanged;           // when it was last written to, named, or changed in any other way
    std::optional<Instant> created;  // where the file system keeps a birth time
};

// Whether two looks at a path saw one file, and nobody wrote to it in between.
[[nodiscard]] bool isUnchanged(const FileStatus& before, const FileStatus& now);

// A folder being listed. "." and ".." are left out; the order is the file system's own. What is added or removed
// meanwhile may or may not be seen.
class Directory {
public:
    struct Entry {
        const char* name = nullptr;    // valid until the next call of next()
        std::optional<FileType> type;  // none where the file system does not tell in a listing
    };

    virtual ~Directory() = default;

    // The next entry; nothing at the end.
    [[nodiscard]] virtual Expected<std::optional<Entry>> next() = 0;

    // Of an entry of this folder, by name. A symlink is not followed.
    [[nodiscard]] virtual Expected<FileStatus> statusOf(const char* name) = 0;

    // Of the folder itself.
    [[nodiscard]] virtual Expected<FileIdentity> identity() = 0;
};

class InputFile {
public:
    virtual ~InputFile() = default;

    // Up to `buffer.size()` bytes from where the last read ended; 0 at the end of the file.
    [[nodiscard]] virtual Expected<std::size_t> read(std::span<std::byte> buffer) = 0;

    [[nodiscard]] virtual Expected<FileStatus> status() = 0;

    // For the kernel's calls on open files, inside this folder alone.
    [[nodiscard]] virtual int descriptor() const = 0;
};

class OutputFile {
public:
    virtual ~OutputFile() = default;

    // How many bytes of `data` were taken, from the front; less than all is no failure.
    [[nodiscard]] virtual Expected<std::size_t> write(std::span<const std::byte> data) = 0;

    // Makes this file, which is empty, share the bytes of `source` on the disk. Fails where the volume cannot.
    [[nodiscard]] virtual Expected<void> cloneFrom(InputFile& source) = 0;

    // Moves up to `maxBytes` from `source`, where its last read ended, inside the kernel; 0 at its end. Fails where
    // the two volumes cannot.
    [[nodiscard]] virtual Expected<std::size_t> copyFrom(InputFile& source, std::size_t maxBytes) = 0;

    // Gives this file the mode, access and modification times, extended attributes and access control list of
    // `source`, as far as its volume can hold them and the user may set them.
    [[nodiscard]] virtual Expected<void> takeAttributesOf(InputFile& source) = 0;

    // Returns when the bytes are on the disk. A failure is final: some bytes are lost, and asking again proves nothing.
    [[nodiscard]] virtual Expected<void> sync() = 0;

    // Drops synced bytes from the page cache, so that the next reader gets what the disk holds.
    [[nodiscard]] virtual Expected<void> dropCache() = 0;

    // For the kernel's calls on open files, inside this folder alone.
    [[nodiscard]] virtual int descriptor() const = 0;
};

// What a file of this process's user may be used for.
enum class Access { read, write, execute };

// Who may use a new file.
enum class NewFileAccess {
    owner,  // nobody else: it is to take over the permissions of another file
    usual,  // whom the umask of the process lets
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    // A folder's listing. A symlink to a folder is followed only when `followSymlink`, which is for folders that the
    // user named and not for what was found below them.
    [[nodiscard]] virtual Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path,
                                                                             bool followSymlink) = 0;

    // A symlink is not followed: what is told is of the link itself.
    [[nodiscard]] virtual Expected<FileStatus> status(const std::string& path) = 0;

    // Of what a symlink leads to.
    [[nodiscard]] virtual Expected<FileStatus> statusFollowingLinks(const std::string& path) = 0;

    // Success if the user may do so.
    [[nodiscard]] virtual Expected<void> checkAccess(const std::string& path, Access access) = 0;

    [[nodiscard]] virtual Expected<std::unique_ptr<InputFile>> openForReading(const std::string& path,
                                                                              bool followSymlink) = 0;

    // A new empty file. Fails if anything stands at `path`, a dangling symlink included.
    [[nodiscard]] virtual Expected<std::unique_ptr<OutputFile>> createFile(const std::string& path,
                                                                           NewFileAccess access) = 0;

    // One atomic step that replaces a file at `to`. A folder there is not replaced.
    [[nodiscard]] virtual Expected<void> rename(const std::string& from, const std::string& to) = 0;

    // One atomic step that fails with EEXIST if anything stands at `to`, whoever put it there and however late.
    [[nodiscard]] virtual Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) = 0;

    // Removes a file or a symlink, never a folder.
    [[nodiscard]] virtual Expected<void> removeFile(const std::string& path) = 0;

    // Removes a folder with nothing in it, hidden names included. A symlink to one is no folder.
    [[nodiscard]] virtual Expected<void> removeDirectory(const std::string& path) = 0;

    // One folder; its parent must exist.
    [[nodiscard]] virtual Expected<void> makeDirectory(const std::string& path) = 0;

    // Returns when the folder's entries (names added, changed, removed) are on the disk.
    [[nodiscard]] virtual Expected<void> syncDirectory(const std::string& path) = 0;

    // Whether the volume that holds what stands at `path` is attached to this machine, rather than reached over a
    // network or shared by another system. Symlinks are followed.
    [[nodiscard]] virtual Expected<bool> volumeIsLocal(const std::string& path) = 0;

    // The creation date cannot be set on Linux, which is why there is no such operation.
    [[nodiscard]] virtual Expected<void> setModificationDate(const std::string& path, Instant date) = 0;

    // Whether the volume that holds what stands at `path` takes no changes, as a locked card. Symlinks are followed.
    [[nodiscard]] virtual Expected<bool> volumeIsReadOnly(const std::string& path) = 0;

    // Bytes that a user without privileges can still put on the volume that holds what stands at `path`; 0 on one
    // that is full or has no notion of space. Fails with EOVERFLOW where there are more than can be counted. Symlinks
    // are followed.
    [[nodiscard]] virtual Expected<std::int64_t> availableBytes(const std::string& path) = 0;
};

// Whether anything stands at `path`, be it a symlink that leads nowhere. A path that cannot be looked at counts as
// free: whoever then uses it gets the real reason from the kernel.
[[nodiscard]] bool somethingStandsAt(FileSystem& fileSystem, const std::string& path);

// Whether two paths lead to one file. False when either leads nowhere.
[[nodiscard]] bool isSameFile(FileSystem& fileSystem, const std::string& first, const std::string& second);

// Makes the folder and all that lead to it. Each folder made is on the disk, with its name, on return. Success if it
// stands already (or a symlink to one); on failure the folders made so far stay.
[[nodiscard]] Expected<void> makeDirectories(FileSystem& fileSystem, const std::string& path);

}  // namespace vellomar
