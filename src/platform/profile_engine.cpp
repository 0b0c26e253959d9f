#include "platform/profile_engine.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <utility>

#include "platform/profile_text.h"

namespace set32 {

namespace {

// Copies what fits, terminated.
std::size_t CopyText(std::string_view text, std::span<char> out) {
  if (out.empty()) return 0;
  const std::size_t count = std::min(text.size(), out.size() - 1);
  std::copy_n(text.data(), count, out.data());
  out[count] = '\0';
  return count;
}

// Fills a span with a packed string list and keeps two bytes for its end.
class PackedListWriter {
 public:
  explicit PackedListWriter(std::span<char> out) : out_(out) {}

  void Add(std::string_view text) {
    const std::size_t count = std::min(text.size(), out_.size() - used_);
    std::copy_n(text.data(), count, out_.data() + used_);
    used_ += count;
    wanted_ += text.size();
  }

  // Result: bytes of the list without its closing NUL, size - 2 when it was cut.
  std::size_t Close() {
    if (wanted_ + 1 <= out_.size()) {
      out_[used_] = '\0';
      return used_;
    }
    const std::size_t kept = out_.size() < 2 ? 0 : out_.size() - 2;
    std::fill(out_.begin() + static_cast<std::ptrdiff_t>(kept), out_.end(), '\0');
    return kept;
  }

 private:
  std::span<char> out_;
  std::size_t used_ = 0;
  std::size_t wanted_ = 0;
};

std::int64_t Milliseconds() {
  using std::chrono::milliseconds;
  return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// ".NUMBER.NUMBER.tmp": no two writers share a name, even where the lock failed them.
std::string TemporaryEnding() {
  static std::atomic<std::uint32_t> counter{0};
  const auto ticks = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  std::string ending;
  for (const std::uint64_t number : {ticks, std::uint64_t{counter++}})
    ending.append(".").append(std::to_string(number));
  return ending.append(".tmp");
}

// Nothing but two numbers: the new file of another one whose name begins alike is none of this one's.
bool IsTemporaryEnding(std::string_view ending) {
  for (int number = 0; number < 2; ++number) {
    if (!ending.starts_with('.')) return false;
    ending.remove_prefix(1);
    const std::size_t digits = std::min(ending.find_first_not_of("0123456789"), ending.size());
    if (digits == 0) return false;
    ending.remove_prefix(digits);
  }
  return ending == ".tmp";
}

// Without a name there is no file to lock either: its lock would lie wherever the process stands.
bool IsName(const char* file) {
  return file != nullptr && *file != '\0';
}

std::span<const std::uint8_t> AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

bool WritePieces(File& file, std::span<const std::string_view> pieces) {
  return std::ranges::all_of(
             pieces,
             [&](std::string_view piece) { return piece.empty() || file.Write(AsBytes(piece)) == piece.size(); }) &&
         file.Flush();
}

std::optional<profile_text::Edit> EditFor(std::string_view text, const char* section, const char* key,
                                          const char* value) {
  if (key == nullptr) return profile_text::RemoveSection(text, section);
  if (value == nullptr) return profile_text::RemoveKey(text, section, key);
  return profile_text::SetValue(text, section, key, value);
}

bool CanCarry(const char* section, const char* key, const char* value) {
  if (key == nullptr || value == nullptr) return true;
  return profile_text::IsSectionName(section) && profile_text::IsKeyName(key) && profile_text::IsValue(value);
}

}  // namespace

ProfileEngine::ReadResult ProfileEngine::Read(const char* file, Content& content) {
  if (!IsName(file)) return ReadResult::missing;
  const std::unique_ptr<File> opened = files_.OpenToRead(file);
  if (!opened) return files_.PresenceOf(file) == Presence::absent ? ReadResult::missing : ReadResult::failed;
  const std::uint64_t size = opened->Size();
  if (size > largestFile) return ReadResult::failed;

  // One byte more than the size tells at the first read that the end was reached; a file that grows meanwhile is
  // read on.
  std::size_t capacity = static_cast<std::size_t>(size) + 1;
  for (;;) {
    auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
    std::copy_n(content.bytes.get(), content.size, bytes.get());
    content.bytes = std::move(bytes);
    const std::size_t room = capacity - content.size;
    const std::size_t count =
        opened->Read({reinterpret_cast<std::uint8_t*>(content.bytes.get()) + content.size, room});
    content.size += std::min(count, room);
    if (count < room) break;
    if (capacity > largestFile) return ReadResult::failed;
    capacity *= 2;
  }
  return content.size < size ? ReadResult::failed : ReadResult::whole;
}

std::size_t ProfileEngine::GetString(const char* section, const char* key, const char* fallback, std::span<char> out,
                                     const char* file) {
  Content content;
  if (section != nullptr && key != nullptr && Read(file, content) == ReadResult::whole) {
    const auto value = profile_text::FindValue(content.Text(), section, key);
    if (value) return CopyText(profile_text::Unquote(*value), out);
  }
  return CopyText(fallback == nullptr ? "" : fallback, out);
}

std::uint32_t ProfileEngine::GetInteger(const char* section, const char* key, std::int32_t fallback,
                                        const char* file) {
  Content content;
  if (section != nullptr && key != nullptr && Read(file, content) == ReadResult::whole) {
    const auto value = profile_text::FindValue(content.Text(), section, key);
    const std::string_view number = profile_text::Unquote(value.value_or(""));
    if (!number.empty()) return profile_text::ParseInteger(number);
  }
  return static_cast<std::uint32_t>(fallback);
}

std::size_t ProfileEngine::GetSection(const char* section, std::span<char> out, const char* file) {
  if (out.empty()) return 0;
  PackedListWriter list(out);
  Content content;
  if (section != nullptr && Read(file, content) == ReadResult::whole) {
    profile_text::SectionLines lines(content.Text(), section);
    for (profile_text::SectionLines::Line line; lines.Next(line);) {
      list.Add(line.name);
      if (line.hasValue) list.Add("=");
      list.Add(line.value);
      list.Add(std::string_view("\0", 1));
    }
  }
  return list.Close();
}

bool ProfileEngine::WriteString(const char* section, const char* key, const char* value, const char* file) {
  if (section == nullptr || !CanCarry(section, key, value)) return false;
  const std::optional<Claim> claim = ClaimFile(file);
  if (!claim) return false;
  Content content;
  if (Read(claim->place.c_str(), content) == ReadResult::failed) return false;
  const std::string_view text = content.Text();
  const auto edit = EditFor(text, section, key, value);
  if (!edit) return true;
  if (text.size() + edit->insert.size() > largestFile) return false;
  return Replace(*claim,
                 std::array{text.substr(0, edit->begin), std::string_view(edit->insert), text.substr(edit->end)});
}

bool ProfileEngine::ReplaceFile(const char* file, std::span<const char> content) {
  const std::optional<Claim> claim = ClaimFile(file);
  return claim && Replace(*claim, std::array{std::string_view(content.data(), content.size())});
}

bool ProfileEngine::CreateIfAbsent(const char* file, std::span<const char> content) {
  // The look before the lock spares the usual start a wait; the one behind it decides.
  if (!IsName(file) || files_.PresenceOf(file) != Presence::absent) return false;
  const std::optional<Claim> claim = ClaimFile(file);
  return claim && files_.PresenceOf(claim->place) == Presence::absent &&
         Replace(*claim, std::array{std::string_view(content.data(), content.size())});
}

std::optional<ProfileEngine::Claim> ProfileEngine::ClaimFile(const char* file) {
  if (!IsName(file)) return std::nullopt;
  std::optional<std::string> place = files_.PlaceToReplace(file);
  if (!place) return std::nullopt;
  std::unique_ptr<FileLock> lock = LockPatiently(*place);
  if (!lock) return std::nullopt;
  RemoveLeftBehind(*place);
  return Claim{std::move(*place), std::move(lock)};
}

std::unique_ptr<FileLock> ProfileEngine::LockPatiently(const std::string& place) {
  const std::int64_t start = Milliseconds();
  const std::size_t name = std::hash<std::string>()(place);
  const bool isRestrained = stuckPlace_ == name && start < restrainedUntil_;
  std::unique_ptr<FileLock> lock = files_.Lock(place, isRestrained ? 0 : patience_.wait);
  if (lock) {
    if (isRestrained) restrainedUntil_ = 0;
  } else if (!isRestrained && Milliseconds() - start >= patience_.wait) {
    stuckPlace_ = name;
    restrainedUntil_ = Milliseconds() + patience_.restraint;
  }
  return lock;
}

// Who holds the lock is the only writer, so every new file that lies there is one that nobody will use.
void ProfileEngine::RemoveLeftBehind(const std::string& place) {
  for (const std::string& ending : files_.EndingsBeside(place)) {
    if (IsTemporaryEnding(ending)) files_.Remove(place + ending);
  }
}

bool ProfileEngine::Replace(const Claim& claim, std::span<const std::string_view> pieces) {
  const std::string temporary = claim.place + TemporaryEnding();
  std::unique_ptr<File> fresh = files_.OpenToWrite(temporary);
  if (!fresh) return false;
  const bool written = WritePieces(*fresh, pieces);
  fresh.reset();
  if (written && files_.Replace(temporary, claim.place)) return true;
  files_.Remove(temporary);
  return false;
}

}  // namespace set32
