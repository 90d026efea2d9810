#include "front_ends/web/node.h"

/// The least that a page can show: one element in one colour, as large as the page.
int main() {
    const solvanta::web::Node window(solvanta::web::Node::find("windows"), "section", "window");
    window.style("width", "100%");
    window.style("height", "100%");
    window.style("background", "green");
}
