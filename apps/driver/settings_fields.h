// The fields of ScanSettings by name: one table for everything that writes or prints a record.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "set32/host_records.h"

namespace set32 {

enum class FieldType { word, integer, real, byte, text, pointer };

struct SettingsField {
  std::string_view name;
  std::size_t offset;
  FieldType type;
};

// Null when no field has the name.
const SettingsField* FindField(std::string_view name);

// In the order of the record.
std::vector<std::string> FieldNames();

// The value as scripts print it; a pointer as 0 or 1.
std::string FieldText(const ScanSettings& settings, const SettingsField& field);

// Throws NotPossible for a value that the field's type can't hold.
void SetField(ScanSettings& settings, const SettingsField& field, std::string_view value);

// Finds and sets; throws also when there is no such field.
void SetField(ScanSettings& settings, std::string_view name, std::string_view value);

// "mode=1 resolutionId=4 ..."
std::string AllFields(const ScanSettings& settings);

}  // namespace set32
