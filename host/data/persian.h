// Persian text as its readers search and order it. The stored text is never changed by either.
#pragma once

#include <string>
#include <string_view>

namespace goods {

// The form in which two spellings of one text are equal: yeh (ي ى ی) and kaf (ك ک) in either spelling,
// Persian and Arabic digits as 0 to 9, A to Z in lower case, ۀ as ه; zero-width joiners and direction marks,
// tatweel and Arabic diacritics are left out. Other letters, آ and those with hamza among them, stay apart.
// The folded form of a part of a text is a part of its folded form, so searching works on folded texts.
std::string FoldPersian(std::string_view text);
// The same, put into out, which keeps its memory.
void FoldPersianInto(std::string_view text, std::string& out);

// A key whose byte order is the order of the Persian alphabet, ا ب پ ت ... و ه ی, after blanks, digits and A
// to Z, before other letters. What FoldPersian makes equal is equal here. آ and letters with hamza stand with
// their letter, and before it only where the texts are otherwise the same.
std::string PersianSortKey(std::string_view text);
// The same, put behind what out holds.
void AppendPersianSortKey(std::string_view text, std::string& out);

}  // namespace goods
