#pragma once
// How names are compared and searched: without regard to case, as the
// project's database compares text.
#include <string>
#include <string_view>

namespace filo::store {

// A-Z as a-z, every other byte as it is: the folding of the database's
// comparisons, so that an index built here agrees with its queries.
std::string ascii_folded(std::string_view text);
bool equal_ignoring_ascii_case(std::string_view a, std::string_view b);

// Lower case for A-Z and for the accented capitals of Latin-1 written in
// UTF-8 ("È" as "è"): the folding of a search that a person types.
std::string case_folded(std::string_view text);

// Whether a name filter lets a text through: the filter is looked for in the
// text without regard to case, and with the case of each letter A-Z
// swapped. An empty filter lets everything through.
bool passes_name_filter(std::string_view text, std::string_view filter);

}  // namespace filo::store
