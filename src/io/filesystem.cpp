#include "io/filesystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "io/paths.h"
#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::io {
namespace {

namespace fs = std::filesystem;

constexpr long kErrBadFileName = 52;
constexpr long kErrDiskFull = 61;
constexpr long kErrRenameAcrossDrives = 74;

// "File not found: C:\Work\x.bas": the standard text of the number and the Windows path.
[[noreturn]] void Fail(long number, std::wstring_view path) {
  vba::Raise(number, vba::Error::StandardDescription(number) + L": " + std::wstring(path));
}

// The error number that best describes a failed system call.
long NumberOfErrno(int err, long otherwise = vba::kErrPathFileAccess) {
  switch (err) {
    case ENOENT: return vba::kErrPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS: return vba::kErrPermissionDenied;
    case ENOSPC:
    case EDQUOT: return kErrDiskFull;
    case EEXIST: return vba::kErrFileAlreadyExists;
    case ENAMETOOLONG: return kErrBadFileName;
    default: return otherwise;
  }
}

fs::path Native(std::wstring_view name) { return fs::path(vba::ToUtf8(name)); }
std::wstring NameOf(const fs::path& p) { return vba::FromUtf8(p.filename().string()); }

// A name Windows accepts for a file or folder.
bool ValidName(std::wstring_view name) {
  if (name.empty()) return false;
  for (wchar_t c : name)
    if (c < 32 || std::wstring_view(L"<>:\"|?*").find(c) != std::wstring_view::npos) return false;
  return true;
}

bool IsDir(const fs::path& p) {
  std::error_code ec;
  return fs::is_directory(p, ec);
}

bool IsFile(const fs::path& p) {
  std::error_code ec;
  return fs::is_regular_file(p, ec);
}

// A file without its owner's write permission carries the read-only attribute of Windows:
// it can be read and renamed, but not written over, appended to or deleted, whoever runs
// the program.
bool ReadOnlyFile(const fs::path& p) {
  struct stat st {};
  return ::stat(p.c_str(), &st) == 0 && S_ISREG(st.st_mode) && (st.st_mode & S_IWUSR) == 0;
}

bool Present(const fs::path& p) {
  std::error_code ec;
  return fs::exists(fs::symlink_status(p, ec));
}

// The entry of `folder` named `name`: the exact name if it exists, else the first entry
// (in byte order) equal without regard to case, else the name as given.
fs::path FindEntry(const fs::path& folder, std::wstring_view name, bool& found) {
  fs::path exact = folder / Native(name);
  if (!found) return exact;
  if (Present(exact)) return exact;
  std::error_code ec;
  std::optional<fs::path> best;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    const fs::path& p = it->path();
    if (vba::EqualsText(NameOf(p), name) && (!best || p.filename() < best->filename())) best = p;
  }
  if (best) return *best;
  found = false;
  return exact;
}

struct Mapping {
  fs::path root;  // the real folder of the drive or share
  fs::path real;  // the real path, existing names found without regard to case
};

// Maps a Windows path; nullopt for a relative path or a name Windows would refuse.
std::optional<Mapping> Map(const fs::path& drives, bool zIsRoot, std::wstring_view path) {
  std::wstring n = NormalizePath(path);
  if (!IsAbsoluteWindowsPath(n)) return std::nullopt;
  std::vector<std::wstring> parts;
  for (std::size_t i = 0; i < n.size();) {
    std::size_t next = n.find(L'\\', i);
    if (next == std::wstring::npos) next = n.size();
    if (next > i) parts.emplace_back(n.substr(i, next - i));
    i = next + 1;
  }
  Mapping m;
  bool found = IsDir(drives);
  std::size_t first;
  if (n[0] == L'\\') {  // \\server\share
    if (parts.size() < 2 || !ValidName(parts[0]) || !ValidName(parts[1])) return std::nullopt;
    m.root = FindEntry(drives, L"unc", found);
    m.root = FindEntry(m.root, parts[0], found);
    m.root = FindEntry(m.root, parts[1], found);
    first = 2;
  } else {
    wchar_t letter = vba::ToLower(n[0]);
    if (zIsRoot && letter == L'z') {
      m.root = "/";
      found = true;
    } else {
      m.root = FindEntry(drives, std::wstring(1, letter), found);
    }
    first = 1;
  }
  m.real = m.root;
  for (std::size_t i = first; i < parts.size(); ++i) {
    if (!ValidName(parts[i])) return std::nullopt;
    m.real = FindEntry(m.real, parts[i], found);
  }
  return m;
}

class Fd {
 public:
  explicit Fd(int fd) : fd_(fd) {}
  ~Fd() {
    if (fd_ >= 0) ::close(fd_);
  }
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  int get() const { return fd_; }
  int release() { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

// Writes all bytes; false with errno set on failure.
bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

void SyncFolder(const fs::path& folder) {
  Fd dir(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (dir.get() >= 0) ::fsync(dir.get());
}

// Where a drive or share has no folder yet, writing to it makes one: the drive exists.
void EnsureRoot(const fs::path& drives, bool zIsRoot, std::wstring_view path) {
  auto m = Map(drives, zIsRoot, path);
  if (!m || IsDir(m->root)) return;
  std::error_code ec;
  fs::create_directories(m->root, ec);
}

std::atomic<unsigned> tempCounter{0};

}  // namespace

MappedFileSystem::MappedFileSystem(std::filesystem::path drives, bool zIsRoot)
    : drives_(std::move(drives)), zIsRoot_(zIsRoot) {}

std::filesystem::path MappedFileSystem::RealPath(std::wstring_view path) const {
  auto m = Map(drives_, zIsRoot_, path);
  if (!m) Fail(kErrBadFileName, path);
  return m->real;
}

std::optional<std::wstring> MappedFileSystem::WindowsPath(const std::filesystem::path& real) const {
  std::error_code ec;
  fs::path p = fs::absolute(real, ec).lexically_normal();
  fs::path d = fs::absolute(drives_, ec).lexically_normal();
  fs::path rel = p.lexically_relative(d);
  std::vector<std::wstring> parts;
  for (const fs::path& part : rel)
    if (!part.empty()) parts.push_back(vba::FromUtf8(part.string()));
  std::wstring out;
  std::size_t first = 0;
  bool under = !rel.empty() && !parts.empty() && parts[0] != L"..";
  if (under && parts[0].size() == 1 && vba::IsLetter(parts[0][0]) && parts[0][0] < 128) {
    out = std::wstring(1, vba::ToUpper(parts[0][0])) + L":\\";
    first = 1;
  } else if (under && vba::EqualsText(parts[0], L"unc") && parts.size() >= 3) {
    out = L"\\\\" + parts[1] + L"\\" + parts[2] + L"\\";
    first = 3;
  } else if (zIsRoot_ && p.is_absolute()) {
    out = L"Z:\\";
    parts.clear();
    for (const fs::path& part : p.relative_path())
      if (!part.empty()) parts.push_back(vba::FromUtf8(part.string()));
  } else {
    return std::nullopt;
  }
  for (std::size_t i = first; i < parts.size(); ++i) {
    if (i > first) out += L'\\';
    out += parts[i];
  }
  return out;
}

bool MappedFileSystem::FileExists(std::wstring_view path) const {
  auto m = Map(drives_, zIsRoot_, path);
  return m && IsFile(m->real);
}

bool MappedFileSystem::FolderExists(std::wstring_view path) const {
  auto m = Map(drives_, zIsRoot_, path);
  return m && IsDir(m->real);
}

std::string MappedFileSystem::ReadFile(std::wstring_view path) const {
  fs::path real = RealPath(path);
  if (IsDir(real)) Fail(vba::kErrPathFileAccess, path);
  if (!IsFile(real)) Fail(vba::kErrFileNotFound, path);
  Fd fd(::open(real.c_str(), O_RDONLY | O_CLOEXEC));
  if (fd.get() < 0) Fail(errno == ENOENT ? vba::kErrFileNotFound : NumberOfErrno(errno), path);
  std::string bytes;
  char buffer[65536];
  for (;;) {
    ssize_t n = ::read(fd.get(), buffer, sizeof buffer);
    if (n < 0) {
      if (errno == EINTR) continue;
      Fail(NumberOfErrno(errno), path);
    }
    if (n == 0) break;
    bytes.append(buffer, static_cast<std::size_t>(n));
  }
  return bytes;
}

void MappedFileSystem::WriteFile(std::wstring_view path, std::string_view bytes) {
  WriteFiles({{std::wstring(path), std::string(bytes)}});
}

void MappedFileSystem::WriteFiles(const std::vector<FileWrite>& files) {
  // Each new content goes to a temporary file in its target's folder; only when every one
  // is written do they replace their targets, each in one step: a reader sees the old file
  // or the new one, never a part, and a failure while staging changes no target.
  struct Staged {
    fs::path temp, real;
  };
  std::vector<Staged> staged;
  auto dropStaged = [&] {
    for (const Staged& s : staged) ::unlink(s.temp.c_str());
  };
  for (const FileWrite& f : files) {
    std::wstring_view path = f.path;
    EnsureRoot(drives_, zIsRoot_, path);
    auto m = Map(drives_, zIsRoot_, path);
    if (!m) {
      dropStaged();
      Fail(kErrBadFileName, path);
    }
    fs::path real = m->real;
    std::error_code ec;
    if (fs::is_symlink(real, ec)) {  // keep the link and write the file it points to
      fs::path linked = fs::canonical(real, ec);
      if (!ec) real = linked;
    }
    fs::path folder = real.parent_path();
    long failure = IsDir(real) || ReadOnlyFile(real) ? long{vba::kErrPathFileAccess}
                   : !IsDir(folder)                  ? long{vba::kErrPathNotFound}
                                                     : 0L;
    fs::path temp;
    int raw = -1;
    for (int attempt = 0; !failure && raw < 0 && attempt < 100; ++attempt) {
      temp = folder / (".~quillet-" + std::to_string(::getpid()) + "-" + std::to_string(tempCounter++) + ".tmp");
      raw = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      if (raw < 0 && errno != EEXIST) break;
    }
    if (!failure && raw < 0) failure = NumberOfErrno(errno);
    if (!failure) {
      Fd fd(raw);
      staged.push_back({temp, real});
      struct stat st {};
      if (::stat(real.c_str(), &st) == 0) ::fchmod(fd.get(), st.st_mode & 07777);
      bool ok = WriteAll(fd.get(), f.bytes) && (!durable_ || ::fsync(fd.get()) == 0);
      int err = errno;
      if (ok) {
        ok = ::close(fd.release()) == 0;
        err = errno;
      }
      if (!ok) failure = NumberOfErrno(err);
    }
    if (failure) {
      dropStaged();
      Fail(failure, path);
    }
  }
  for (std::size_t i = 0; i < staged.size(); ++i) {
    if (::rename(staged[i].temp.c_str(), staged[i].real.c_str()) != 0) {
      int err = errno;
      for (std::size_t k = i; k < staged.size(); ++k) ::unlink(staged[k].temp.c_str());
      Fail(NumberOfErrno(err), files[i].path);
    }
  }
  if (durable_) {
    std::vector<fs::path> folders;
    for (const Staged& s : staged)
      if (std::find(folders.begin(), folders.end(), s.real.parent_path()) == folders.end())
        folders.push_back(s.real.parent_path());
    for (const fs::path& folder : folders) SyncFolder(folder);
  }
}

void MappedFileSystem::AppendFile(std::wstring_view path, std::string_view bytes) {
  EnsureRoot(drives_, zIsRoot_, path);
  fs::path real = RealPath(path);
  if (IsDir(real) || ReadOnlyFile(real)) Fail(vba::kErrPathFileAccess, path);
  if (!IsDir(real.parent_path())) Fail(vba::kErrPathNotFound, path);
  Fd fd(::open(real.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
  if (fd.get() < 0 || !WriteAll(fd.get(), bytes)) Fail(NumberOfErrno(errno), path);
}

void MappedFileSystem::DeleteFile(std::wstring_view path) {
  fs::path real = RealPath(path);
  if (IsDir(real) || ReadOnlyFile(real)) Fail(vba::kErrPathFileAccess, path);
  if (!Present(real)) Fail(vba::kErrFileNotFound, path);
  if (::unlink(real.c_str()) != 0) Fail(NumberOfErrno(errno), path);
}

void MappedFileSystem::Rename(std::wstring_view from, std::wstring_view to) {
  fs::path source = RealPath(from);
  if (!Present(source)) Fail(vba::kErrFileNotFound, from);
  EnsureRoot(drives_, zIsRoot_, to);
  fs::path target = RealPath(to);
  if (!IsDir(target.parent_path())) Fail(vba::kErrPathNotFound, to);
  std::error_code ec;
  if (Present(target)) {
    // Only a change of case within the same entry may land on an existing name.
    if (!fs::equivalent(source, target, ec)) Fail(vba::kErrFileAlreadyExists, to);
    target = target.parent_path() / Native(FileNameOf(NormalizePath(to)));
  }
  if (::rename(source.c_str(), target.c_str()) != 0)
    Fail(errno == EXDEV ? kErrRenameAcrossDrives : NumberOfErrno(errno), to);
}

void MappedFileSystem::CreateFolder(std::wstring_view path) {
  EnsureRoot(drives_, zIsRoot_, path);
  fs::path real = RealPath(path);
  if (Present(real)) Fail(vba::kErrPathFileAccess, path);
  if (!IsDir(real.parent_path())) Fail(vba::kErrPathNotFound, path);
  if (::mkdir(real.c_str(), 0777) != 0) Fail(NumberOfErrno(errno), path);
}

void MappedFileSystem::DeleteFolder(std::wstring_view path) {
  fs::path real = RealPath(path);
  if (!IsDir(real)) Fail(vba::kErrPathNotFound, path);
  if (::rmdir(real.c_str()) != 0) Fail(NumberOfErrno(errno), path);
}

std::vector<DirEntry> MappedFileSystem::List(std::wstring_view folder) const {
  fs::path real = RealPath(folder);
  if (!IsDir(real)) Fail(vba::kErrPathNotFound, folder);
  std::vector<DirEntry> entries;
  std::error_code ec;
  for (fs::directory_iterator it(real, ec), end; !ec && it != end; it.increment(ec))
  {
    std::error_code kind;  // a link to nothing is a file here, as Windows lists it
    entries.push_back({NameOf(it->path()), it->is_directory(kind)});
  }
  if (ec) Fail(NumberOfErrno(ec.value()), folder);
  // Each name's upper case is made once, not at every comparison of the sort.
  std::vector<std::pair<std::wstring, std::size_t>> order;
  order.reserve(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) order.emplace_back(vba::UCase(entries[i].name), i);
  std::sort(order.begin(), order.end(), [&](const auto& a, const auto& b) {
    return a.first != b.first ? a.first < b.first : entries[a.second].name < entries[b.second].name;
  });
  std::vector<DirEntry> sorted;
  sorted.reserve(entries.size());
  for (const auto& [upper, i] : order) sorted.push_back(std::move(entries[i]));
  return sorted;
}

}  // namespace quillet::io
