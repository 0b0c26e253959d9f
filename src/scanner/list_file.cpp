#include "scanner/list_file.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace set32 {

namespace {

constexpr std::size_t headerBytes = 4;
constexpr std::uint8_t magic[] = {'D', 'L'};

void AppendBytes(std::vector<char>& content, std::span<const std::uint8_t> bytes) {
  content.insert(content.end(), bytes.begin(), bytes.end());
}

// Reads record by record through a buffer of fixed size.
class RecordReader {
 public:
  explicit RecordReader(File& file) : file_(file) {}

  // False at the end of the file, also in the middle of a record.
  bool Next(ScannerRecord& record) {
    if (next_ + sizeof(ScannerRecord) > filled_) {
      filled_ = file_.Read(buffer_);
      next_ = 0;
      if (filled_ < sizeof(ScannerRecord)) return false;
    }
    record = DecodeRecord(std::span(buffer_).subspan(next_).first<sizeof(ScannerRecord)>());
    next_ += sizeof(ScannerRecord);
    return true;
  }

 private:
  File& file_;
  std::array<std::uint8_t, 128 * sizeof(ScannerRecord)> buffer_{};
  std::size_t filled_ = 0;
  std::size_t next_ = 0;
};

bool IsOffered(const ScannerRecord& record) {
  return (record.flags & SCANNER_FLAG_ADDED) == 0 || (record.flags & SCANNER_FLAG_ANSWERED) != 0;
}

}  // namespace

bool WriteListFile(ProfileCalls& profiles, const std::string& path, const CScannerList& list) {
  DistinctRecords table(2 * maxScanners);
  for (const ScannerNode* node = list.Head(); node != nullptr; node = node->next.get()) table.Put(node->record);
  for (const ScannerRecord& record : list.Added().All()) table.Put(record);

  std::vector<char> content;
  content.reserve(headerBytes + table.All().size() * sizeof(ScannerRecord));
  const std::array<std::uint8_t, headerBytes> header = {magic[0], magic[1],
                                                        static_cast<std::uint8_t>(table.All().size()),
                                                        static_cast<std::uint8_t>(list.selectedIndex)};
  AppendBytes(content, header);
  for (const ScannerRecord& record : table.All()) AppendBytes(content, EncodeRecord(record));
  return profiles.ReplaceFile(path.c_str(), content);
}

bool ReadListFile(Files& files, std::string_view path, CScannerList& list,
                  const std::function<void(std::string_view name)>& show) {
  const std::unique_ptr<File> file = files.OpenToRead(path);
  std::array<std::uint8_t, headerBytes> header{};
  if (!file || file->Read(header) < header.size()) return false;
  if (!std::equal(std::begin(magic), std::end(magic), header.begin())) return false;

  // A signed byte widened: from 0x80 on it is past every list.
  const unsigned selected = header[3];
  list.selectedIndex = static_cast<std::uint16_t>(selected < 0x80 ? selected : 0xFF00 | selected);
  list.Added().Clear();
  RecordReader reader(*file);
  for (ScannerRecord record; reader.Next(record);) {
    if (IsAddedScanner(record)) list.RememberAddedScanner(record);
    if (list.AddScannerRecord(record) != nullptr && IsOffered(record)) show(record.Name());
  }
  if (list.selectedIndex > list.Count()) list.selectedIndex = 0;
  return true;
}

}  // namespace set32
