#include "cursor.h"

#include <array>

namespace ravelin::browser {
namespace {

struct Shape {
    std::string_view css;
    LPCWSTR system;
};

}  // namespace

HCURSOR cursorFor(std::string_view css) {
    const std::array<Shape, 25> shapes = {{{"pointer", IDC_HAND},
                                           {"text", IDC_IBEAM},
                                           {"vertical-text", IDC_IBEAM},
                                           {"wait", IDC_WAIT},
                                           {"progress", IDC_APPSTARTING},
                                           {"help", IDC_HELP},
                                           {"crosshair", IDC_CROSS},
                                           {"cell", IDC_CROSS},
                                           {"move", IDC_SIZEALL},
                                           {"all-scroll", IDC_SIZEALL},
                                           {"grab", IDC_HAND},
                                           {"grabbing", IDC_SIZEALL},
                                           {"not-allowed", IDC_NO},
                                           {"no-drop", IDC_NO},
                                           {"e-resize", IDC_SIZEWE},
                                           {"w-resize", IDC_SIZEWE},
                                           {"ew-resize", IDC_SIZEWE},
                                           {"col-resize", IDC_SIZEWE},
                                           {"n-resize", IDC_SIZENS},
                                           {"s-resize", IDC_SIZENS},
                                           {"ns-resize", IDC_SIZENS},
                                           {"row-resize", IDC_SIZENS},
                                           {"nwse-resize", IDC_SIZENWSE},
                                           {"nesw-resize", IDC_SIZENESW},
                                           {"se-resize", IDC_SIZENWSE}}};
    // After pictures of its own a page names the shape to fall back to.
    const std::size_t comma = css.rfind(", ");
    if (comma != std::string_view::npos) css.remove_prefix(comma + 2);
    if (css == "none") return nullptr;
    for (const Shape& shape : shapes) {
        if (shape.css == css) return LoadCursorW(nullptr, shape.system);
    }
    return LoadCursorW(nullptr, IDC_ARROW);
}

}  // namespace ravelin::browser
