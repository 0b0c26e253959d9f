#include "panel/rules/face_rules.h"

#include "resources/ids.h"

namespace set32 {

namespace {

// Statement and A5 stand behind Letter and A4: people look for the metric size beside its neighbour.
constexpr SizeEntry sheetFlatbed[] = {
    {text::size3x5, size_id::photo3x5},
    {text::size4x6, size_id::photo4x6},
    {text::size5x7, size_id::photo5x7},
    {text::sizeLetter, size_id::letter},
    {text::sizeStatement, size_id::statement},
    {text::sizeA4, size_id::a4},
    {text::sizeA5, size_id::a5},
    {text::sizeB5, size_id::b5},
    {text::sizeExecutive, size_id::executive},
    {text::sizeBusinessCard, size_id::businessCard},
    {text::sizeUserDefined, size_id::userDefined},
};
constexpr SizeEntry sheetFeeder[] = {
    {text::sizeLetter, size_id::letter}, {text::sizeStatement, size_id::statement},
    {text::sizeA4, size_id::a4},         {text::sizeA5, size_id::a5},
    {text::sizeB5, size_id::b5},         {text::sizeExecutive, size_id::executive},
    {text::sizeLegal, size_id::legal},
};
constexpr SizeEntry sheetPositive[] = {
    {text::sizePositiveFilm, size_id::film},
    {text::sizeUserDefined, size_id::userDefined},
};
constexpr SizeEntry sheetNegative[] = {
    {text::sizeNegativeFilm, size_id::film},
    {text::sizeUserDefined, size_id::userDefined},
};

constexpr SizeEntry inlineFlatbed[] = {
    {text::size3x5, size_id::photo3x5},
    {text::size4x6, size_id::photo4x6},
    {text::size5x7, size_id::photo5x7},
    {text::sizeLetter, size_id::letter},
    {text::sizeA4, size_id::a4},
    {text::sizeB5, size_id::b5},
    {text::sizeBusinessCard, size_id::businessCard},
    {text::sizeUserDefined, size_id::userDefined},
};
constexpr SizeEntry inlineFeeder[] = {
    {text::sizeLetter, size_id::letter},
    {text::sizeA4, size_id::a4},
    {text::sizeB5, size_id::b5},
    {text::sizeLegal, size_id::legal},
};
constexpr SizeEntry inlineTransparency[] = {
    {text::size3x5, size_id::photo3x5},
    {text::size4x6, size_id::photo4x6},
    {text::size5x7, size_id::photo5x7},
    {text::sizeNegativeFilm, size_id::film},
    {text::sizeUserDefined, size_id::userDefined},
};

// Photos lie on their long side, as do A5 and Statement. The inline face knows no row behind `film`.
constexpr SizeRow allSizes[] = {
    {size_id::photo3x5, 5.0, 3.0},
    {size_id::photo4x6, 6.0, 4.0},
    {size_id::photo5x7, 7.0, 5.0},
    {size_id::letter, 8.5, 11.0},
    {size_id::a4, 8.25, 11.69},
    {size_id::b5, 7.17, 10.12},
    {size_id::businessCard, 3.5, 2.0},
    {size_id::legal, 8.5, 14.0},
    {size_id::film, 1.4173228346456692, 0.9448818897637795},
    {size_id::a5, 8.27, 5.83},
    {size_id::statement, 8.5, 5.5},
    {size_id::executive, 7.25, 10.5},
};
constexpr std::size_t inlineSizeCount = 9;
static_assert(allSizes[inlineSizeCount - 1].sizeId == size_id::film);

constexpr SizeRow uprightPhotos[] = {
    {size_id::photo3x5, 3.0, 5.0},
    {size_id::photo4x6, 4.0, 6.0},
    {size_id::photo5x7, 5.0, 7.0},
};

constexpr std::uint32_t below150 = resolution::dpi75 | resolution::dpi100;
constexpr std::uint32_t below300 = below150 | resolution::dpi150 | resolution::dpi200;

constexpr unsigned blackWhiteAlways = mode_reset::descreen | mode_reset::highBitDepth;

}  // namespace

const FaceRules sheetFaceRules = {
    .sizeLists = {{sheetFlatbed, sheetFeeder, sheetPositive, sheetNegative}},
    .sizes = allSizes,
    .transparencySizes = {},
    .sizeEditsEnabled = {{true, false, true, true}},
    .frameLeftOfChoice = {{0, 0, 20, 20}},
    .centresOnFeeder = true,
    .smallestSizeHasOwnText = true,
    .typedSizeKeepsToPreview = true,
    .reportTolerance = static_cast<double>(0.04F),
    .barredResolutions = {{0, 0, below300, below300}},
    .negativeLow = 300,
    .negativeFloor = 150,
    .negativeDpi = 300,
    .negativeResolutionId = resolution::dpi300,
    .dpiAboveListIsCorrected = true,
    .minDpiAtBinding = {{75, 75, 300, 300}},
    .minDpiAtSourceChange = {{75, 75, 75, 150}},
    .resolutionMaskWithoutLimits = 0x1FFE,
    .grayResets = mode_reset::saturation | mode_reset::hue,
    .blackWhiteResets = blackWhiteAlways | mode_reset::hue | mode_reset::saturation | mode_reset::sharpness |
                        mode_reset::contrast | mode_reset::gammas,
};

const FaceRules inlineFaceRules = {
    .sizeLists = {{inlineFlatbed, inlineFeeder, inlineTransparency, inlineTransparency}},
    .sizes = std::span(allSizes).first<inlineSizeCount>(),
    .transparencySizes = uprightPhotos,
    .sizeEditsEnabled = {{true, true, true, true}},
    .frameLeftOfChoice = {{0, 0, 0, 0}},
    .centresOnFeeder = false,
    .smallestSizeHasOwnText = false,
    .typedSizeKeepsToPreview = false,
    .reportTolerance = 0.04,
    .barredResolutions = {{0, 0, 0, below150}},
    .negativeLow = 150,
    .negativeFloor = 150,
    .negativeDpi = 150,
    .negativeResolutionId = resolution::dpi150,
    .dpiAboveListIsCorrected = false,
    .minDpiAtBinding = {{75, 75, 75, 150}},
    .minDpiAtSourceChange = {{75, 75, 75, 150}},
    .resolutionMaskWithoutLimits = 0,
    .grayResets = mode_reset::none,
    .blackWhiteResets = blackWhiteAlways,
};

}  // namespace set32
