#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "service/ports/DocumentRecords.h"
#include "service/store/BoundSql.h"

namespace disclosure {

/// How the documents of one filter are found; every statement names the index it reads. What the tallies do not know is
/// counted on the way with the fewest documents. The texts differ by what is asked for only, never by its values, so
/// that they can be kept.
class DocumentPlan {
public:
    /// The first three give the documents in the order of the list.
    enum class Path { All, Folder, Untagged, Names, Tag, Woven, Extension, Updater };

    explicit DocumentPlan(const DocumentFilter& filter);

    /// Whether more is asked for than the tallies know.
    bool isSearched() const { return !m_keyword.empty() || isTagged() || isWoven(); }
    Path ordered() const;
    /// The ways without an order.
    const std::vector<Path>& others() const { return m_others; }
    /// What the tallies are asked for the number of documents on a way they know: that alone of the filter.
    DocumentFilter alone(Path path) const;
    /// The number of documents on another way, counted up to `most`.
    BoundSql probe(Path path, std::int64_t most) const;
    BoundSql count(Path path) const;
    /// The documents of the page out of `total`, as rows.
    BoundSql page(Path path, std::int64_t total) const;

private:
    bool isTagged() const { return !m_filter.tagId.empty() && m_filter.tagId != DocumentFilter::Untagged; }
    bool isWoven() const { return m_filter.from > 0 || m_filter.to != Never; }
    static std::string from(Path path);
    std::string conditions(Path path) const;
    BoundSql statement(std::string text) const;

    DocumentFilter m_filter;
    std::string m_keyword;
    std::string m_grams;
    std::vector<Path> m_others;
};

}  // namespace disclosure
