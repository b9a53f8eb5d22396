#include "service/domain/DocumentTypes.h"

#include <array>

namespace disclosure {

namespace {

using namespace std::string_view_literals;

constexpr std::array Drawings{"dwg"sv};
constexpr std::array Texts{"doc"sv, "docx"sv, "pdf"sv, "txt"sv};
constexpr std::array Sheets{"xls"sv, "xlsx"sv};
constexpr std::array Slides{"ppt"sv, "pptx"sv};
constexpr std::array Pictures{"jpg"sv, "jpeg"sv, "png"sv, "bmp"sv};
constexpr std::array Films{"mp4"sv, "avi"sv, "wmv"sv, "webm"sv};

constexpr std::array<DocumentType, 6> Types{
    {{"图纸", Drawings}, {"文档", Texts}, {"表格", Sheets}, {"演示", Slides}, {"图片", Pictures}, {"视频", Films}}};

}  // namespace

std::span<const DocumentType> documentTypes() {
    return Types;
}

}  // namespace disclosure
