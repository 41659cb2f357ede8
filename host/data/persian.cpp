#include "host/data/persian.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace goods {
namespace {

constexpr char32_t kFirstArabic = 0x600;
constexpr char32_t kPastArabic = 0x700;

constexpr char32_t kYeh = U'ی';
constexpr char32_t kKaf = U'ک';
constexpr char32_t kHeh = U'ه';

// 0: left out. Below 0x80: that ASCII character. Else the letter to use.
constexpr char32_t FoldLetter(char32_t c) {
  if (c >= 0x6F0 && c <= 0x6F9) return U'0' + (c - 0x6F0);
  if (c >= 0x660 && c <= 0x669) return U'0' + (c - 0x660);
  const bool diacritic = (c >= 0x64B && c <= 0x65F) || c == 0x670;
  if (diacritic || c == 0x640) return 0;
  switch (c) {
    case U'ي':
    case U'ى':
      return kYeh;
    case U'ك':
      return kKaf;
    case 0x6C0:  // heh with hamza above, in one character
      return kHeh;
    default:
      return c;
  }
}

constexpr std::array<char32_t, kPastArabic - kFirstArabic> MakeFolds() {
  std::array<char32_t, kPastArabic - kFirstArabic> folds{};
  for (char32_t c = kFirstArabic; c < kPastArabic; ++c) folds[c - kFirstArabic] = FoldLetter(c);
  return folds;
}
constexpr auto kFolds = MakeFolds();

constexpr char kPlainForm = 9;

// A letter's place in the alphabet as one byte between ASCII and the lead bytes of UTF-8, and, among letters
// of one place, which form it is.
struct Place {
  char letter = 0;  // 0: not of the alphabet
  char form = kPlainForm;
};

constexpr std::array<Place, kPastArabic - kFirstArabic> MakePlaces() {
  std::array<Place, kPastArabic - kFirstArabic> places{};
  constexpr std::u32string_view kAlphabet = U"ءابپتثجچحخدذرزژسشصضطظعغفقکگلمنوهی";
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    places[kAlphabet[i] - kFirstArabic].letter = static_cast<char>(0x80U + i);
  }
  const auto variant = [&places](char32_t letter, char32_t of, char form) {
    places[letter - kFirstArabic] = {places[of - kFirstArabic].letter, form};
  };
  variant(U'آ', U'ا', 1);
  variant(U'أ', U'ا', 2);
  variant(U'إ', U'ا', 3);
  variant(U'ؤ', U'و', 1);
  variant(U'ئ', U'ی', 1);
  variant(U'ة', U'ه', 1);
  return places;
}
constexpr auto kPlaces = MakePlaces();

// Zero-width space, non-joiner, joiner and direction marks; the byte order mark.
bool IsInvisible(unsigned first, unsigned second, unsigned third) {
  const bool mark = first == 0xE2 && second == 0x80 && third >= 0x8B && third <= 0x8F;
  return mark || (first == 0xEF && second == 0xBB && third == 0xBF);
}

// Calls ascii(char) or arabic(letter) with each folded character that counts, other(bytes) with the rest.
template <typename Ascii, typename Arabic, typename Other>
void EachFolded(std::string_view text, Ascii ascii, Arabic arabic, Other other) {
  for (std::size_t i = 0; i < text.size();) {
    const auto byte = [&](std::size_t offset) {
      return i + offset < text.size() ? static_cast<unsigned char>(text[i + offset]) : 0U;
    };
    const unsigned lead = byte(0);
    if (lead < 0x80) {
      const bool upper = lead >= 'A' && lead <= 'Z';
      ascii(static_cast<char>(upper ? lead - 'A' + 'a' : lead));
      ++i;
    } else if (lead >= 0xD8 && lead <= 0xDB && (byte(1) & 0xC0U) == 0x80U) {
      const char32_t folded = kFolds[((lead & 0x1FU) << 6U | (byte(1) & 0x3FU)) - kFirstArabic];
      i += 2;
      if (folded >= kFirstArabic) {
        arabic(folded);
      } else if (folded != 0) {
        ascii(static_cast<char>(folded));
      }
    } else if (IsInvisible(lead, byte(1), byte(2))) {
      i += 3;
    } else {
      other(text[i++]);
    }
  }
}

void AppendArabic(char32_t letter, std::string& out) {
  out.push_back(static_cast<char>(0xC0U | (letter >> 6U)));
  out.push_back(static_cast<char>(0x80U | (letter & 0x3FU)));
}

}  // namespace

void FoldPersianInto(std::string_view text, std::string& out) {
  out.clear();
  const auto keep = [&out](char c) { out.push_back(c); };
  EachFolded(
      text, keep, [&out](char32_t letter) { AppendArabic(letter, out); }, keep);
}

std::string FoldPersian(std::string_view text) {
  std::string out;
  FoldPersianInto(text, out);
  return out;
}

void AppendPersianSortKey(std::string_view text, std::string& out) {
  // The letters, a zero byte, then the forms; where every form is plain one byte says so, greater than any of
  // them.
  std::string forms;
  std::size_t letters = 0;
  const auto next = [&out, &letters](char c) {
    out.push_back(c);
    ++letters;
  };
  EachFolded(
      text, [&next](char c) { next(c == 0 ? '\1' : c); },
      [&](char32_t letter) {
        const Place place = kPlaces[letter - kFirstArabic];
        if (place.form != kPlainForm) {
          forms.resize(letters, kPlainForm);
          forms.push_back(place.form);
        }
        if (place.letter != 0) {
          next(place.letter);
        } else {
          AppendArabic(letter, out);
          ++letters;
        }
      },
      next);
  out.push_back('\0');
  if (!forms.empty()) forms.resize(letters, kPlainForm);
  out.append(forms).push_back(static_cast<char>(kPlainForm + 1));
}

std::string PersianSortKey(std::string_view text) {
  std::string key;
  AppendPersianSortKey(text, key);
  return key;
}

}  // namespace goods
