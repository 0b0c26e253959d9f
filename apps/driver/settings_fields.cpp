#include "apps/driver/settings_fields.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>

#include "apps/driver/not_possible.h"
#include "apps/driver/script_text.h"
#include "apps/driver/suggestions.h"

namespace set32 {

namespace {

#define SET32_FIELD(field, type)                           \
  SettingsField {                                          \
#field, offsetof(ScanSettings, field), FieldType::type \
  }

constexpr std::array fields = {
    SET32_FIELD(mode, word),        SET32_FIELD(resolutionId, word),  SET32_FIELD(dpi, integer),
    SET32_FIELD(useDefaults, word), SET32_FIELD(brightness, integer), SET32_FIELD(contrast, integer),
    SET32_FIELD(bandGamma, word),   SET32_FIELD(gammaAll, real),      SET32_FIELD(gammaRed, real),
    SET32_FIELD(gammaGreen, real),  SET32_FIELD(gammaBlue, real),     SET32_FIELD(name, text),
    SET32_FIELD(hostWord, word),    SET32_FIELD(sizeId, word),        SET32_FIELD(width, real),
    SET32_FIELD(height, real),      SET32_FIELD(rotated, word),       SET32_FIELD(units, word),
    SET32_FIELD(customWidth, real), SET32_FIELD(customHeight, real),  SET32_FIELD(frameLeft, integer),
    SET32_FIELD(frameTop, integer), SET32_FIELD(highBitDepth, word),  SET32_FIELD(autoCrop, word),
    SET32_FIELD(descreen, word),    SET32_FIELD(descreenKind, word),  SET32_FIELD(jpegQuality, integer),
    SET32_FIELD(paperSource, word), SET32_FIELD(singleFile, byte),    SET32_FIELD(saturation, integer),
    SET32_FIELD(hue, integer),      SET32_FIELD(sharpness, integer),  SET32_FIELD(frameCommand, pointer),
};

#undef SET32_FIELD

constexpr std::size_t nameSize = sizeof(ScanSettings::name);

template <typename T>
T Load(const ScanSettings& settings, const SettingsField& field) {
  T value;
  std::memcpy(&value, reinterpret_cast<const char*>(&settings) + field.offset, sizeof value);
  return value;
}

template <typename T>
void Store(ScanSettings& settings, const SettingsField& field, T value) {
  std::memcpy(reinterpret_cast<char*>(&settings) + field.offset, &value, sizeof value);
}

std::string NameText(const ScanSettings& settings) {
  const std::string_view whole(settings.name, nameSize);
  return Quote(whole.substr(0, whole.find('\0')));
}

void StoreName(ScanSettings& settings, std::string_view name) {
  if (name.size() >= nameSize) throw NotPossible("a name has at most 19 bytes");
  std::memset(settings.name, 0, nameSize);
  std::memcpy(settings.name, name.data(), name.size());
}

}  // namespace

const SettingsField* FindField(std::string_view name) {
  for (const SettingsField& field : fields) {
    if (field.name == name) return &field;
  }
  return nullptr;
}

std::vector<std::string> FieldNames() {
  std::vector<std::string> names;
  names.reserve(fields.size());
  for (const SettingsField& field : fields) names.emplace_back(field.name);
  return names;
}

std::string FieldText(const ScanSettings& settings, const SettingsField& field) {
  switch (field.type) {
    case FieldType::word:
      return std::to_string(Load<std::uint32_t>(settings, field));
    case FieldType::integer:
      return std::to_string(Load<std::int32_t>(settings, field));
    case FieldType::real:
      return Number(Load<double>(settings, field));
    case FieldType::byte:
      return std::to_string(Load<std::uint8_t>(settings, field));
    case FieldType::text:
      return NameText(settings);
    case FieldType::pointer:
      return Load<std::uint32_t>(settings, field) != 0 ? "1" : "0";
  }
  return {};
}

void SetField(ScanSettings& settings, const SettingsField& field, std::string_view value) {
  switch (field.type) {
    case FieldType::word:
    case FieldType::pointer:
      return Store(settings, field, RequireWord32(value));
    case FieldType::integer: {
      return Store(settings, field, static_cast<std::int32_t>(RequireWord32(value)));
    }
    case FieldType::real: {
      const auto number = ParseReal(value);
      if (!number) throw NotPossible(Quote(value) + " is no number");
      return Store(settings, field, *number);
    }
    case FieldType::byte: {
      const std::uint32_t number = RequireWord32(value);
      if (number > std::numeric_limits<std::uint8_t>::max()) throw NotPossible("a byte holds 0 to 255");
      return Store(settings, field, static_cast<std::uint8_t>(number));
    }
    case FieldType::text:
      return StoreName(settings, value);
  }
}

void SetField(ScanSettings& settings, std::string_view name, std::string_view value) {
  const SettingsField* field = FindField(name);
  if (field == nullptr) throw NotPossible("no field " + std::string(name), Suggest(name, FieldNames()));
  SetField(settings, *field, value);
}

std::string AllFields(const ScanSettings& settings) {
  std::string line;
  for (const SettingsField& field : fields) {
    if (!line.empty()) line += ' ';
    line += std::string(field.name) + '=' + FieldText(settings, field);
  }
  return line;
}

}  // namespace set32
