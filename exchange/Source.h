#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "geo/GeoPoint.h"

namespace korvel {

/// Larger files are no plans, tracks or lists of waypoints that a pilot would want to wait for.
inline constexpr std::size_t kLargestForeignFile = 64U << 20U;
inline constexpr std::size_t kMostForeignPoints = 1'000'000;

/// A file of another program: its text and, when it is XML, its elements. They live as long as
/// this. Entities of a document's own are never expanded; a torn document has no root.
class Source {
 public:
    explicit Source(std::string bytes);
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    ~Source() = default;

    /// The whole file; of an XML document the size alone means anything.
    [[nodiscard]] const std::string& text() const { return text_; }
    /// The root's name without its prefix; empty when this is no whole XML document.
    [[nodiscard]] std::string_view rootName() const { return rootName_; }
    [[nodiscard]] pugi::xml_node root() const { return document_.document_element(); }
    [[nodiscard]] bool looksLikeXml() const { return looksLikeXml_; }

 private:
    std::string text_;  ///< XML is parsed where it stands: a track may be large
    pugi::xml_document document_;
    std::string rootName_;
    bool looksLikeXml_ = false;
};

// Elements by their names without prefixes, which differ from program to program.

std::string_view localName(pugi::xml_node node);
pugi::xml_node childNamed(pugi::xml_node node, std::string_view name);
/// The text of that child as it stands, for numbers and times; empty without one. Good as long as
/// the document.
std::string_view childValue(pugi::xml_node node, std::string_view name);
/// The text of that child, blanks at its ends taken off and as UTF-8; empty without one.
std::string childText(pugi::xml_node node, std::string_view name);
std::string attributeText(pugi::xml_node node, const char* name);

/// What is no UTF-8 is taken as Latin-1.
std::string asUtf8(std::string_view text);

/// The number that is all of the text; nothing for others, infinities and not-a-number.
std::optional<double> wholeNumber(std::string_view text);
/// Degrees in range; nothing otherwise.
std::optional<GeoPoint> pointOf(std::string_view lat, std::string_view lon);

/// Seconds since 1970 of a time such as "2026-08-22T10:11:12.5Z" or "…+02:00"; one without a zone
/// is UTC. Nothing for what is none.
std::optional<std::int64_t> utcOf(std::string_view iso);

template <class Visit>
void eachChild(pugi::xml_node node, std::string_view name, Visit visit) {
    for (const pugi::xml_node child : node.children())
        if (localName(child) == name)
            visit(child);
}

}  // namespace korvel
