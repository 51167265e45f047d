#ifndef RULEFORGE_RULES_CLAUSE_H
#define RULEFORGE_RULES_CLAUSE_H

#include <cstddef>
#include <cstdio>
#include <memory>

#include "parse/parsefil.h"
#include "text/dliststr.h"
#include "text/slotpool.h"
#include "text/str.h"

class tTextSink;
class tClauseTemplate;

// The texts of one kind ("S" or "V") of a clause template, one list for each
// of the four variants, in the order of their priorities. Owns the lists and
// their texts. A list is made when its first text is added: most templates
// use one or two of their eight lists, and an empty list reads as one that
// holds nothing.
class tTextLists {
 public:
  tTextLists() {}
  tTextLists(const tTextLists&) = delete;
  tTextLists& operator=(const tTextLists&) = delete;

  // The list of a variant (0 to 3); an empty one when nothing was added.
  const DListtPrioritizedString& operator[](int variant) const;
  // The list of a variant, made on first use, for adding texts.
  DListtPrioritizedString& Make(int variant);

  // The four lists in variant order, for range-for.
  class Iterator {
   public:
    Iterator(const tTextLists& lists, int variant) : Lists(lists), Variant(variant) {}
    const DListtPrioritizedString& operator*() const { return Lists[Variant]; }
    Iterator& operator++() {
      ++Variant;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return Variant != other.Variant; }

   private:
    const tTextLists& Lists;
    int Variant;
  };
  Iterator begin() const { return Iterator(*this, 0); }
  Iterator end() const { return Iterator(*this, 4); }

 private:
  std::unique_ptr<DListtPrioritizedString> Lists[4];
};

// How a header line of a template or a line of the parseable section splits
// into fields: a field ends after each comma or line end, and blanks, tabs,
// line ends and commas are removed wherever they stand in it.
const tPieceRule& FieldRule();

// The fields of line by FieldRule, appended to fields.
void SplitFields(DListtString& fields, const char* line);

// The same, calling glued(start) with the start in line of each field that
// had a blank or tab inside, between bytes it keeps.
template <class F>
void SplitFields(DListtString& fields, const char* line, F glued) {
  FieldRule().ForEach(line, [&](const std::string& piece, const char* start, bool inside) {
    fields.ToTail(new tString(piece.c_str()));
    if (inside) glued(start);
  });
}

// The field of a record's state line that the writer puts variant's state in
// (tClauseData::WriteParseable): one state for each labelled variant, in
// variant order, after an empty first field when variant 0 is unlabelled; -1
// for an unlabelled variant. A reader takes field k as variant k's state, so
// a state comes back where it was written only when the two agree. In
// rules/clausdat.cpp.
int StateField(const tClauseTemplate& clause, int variant);

// One rule pattern of a template file: the clause's name, the captions the user
// fills it in under, and its filter texts for each of four variants ("S" texts
// once per variant in effect, "V" texts once per value or pair of values). Owns
// its texts. A main template owns its companion template (Partner) and deletes
// it with itself; the companion points back at its main template without owning
// it, and deleting a companion only unhooks it, leaving the main template alone.
class tClauseTemplate : public tObject, public tPooled<tClauseTemplate> {
 public:
  // Flag bit: all four variant labels are empty, so the user fills in nothing.
  static const unsigned FixedClause = 1;

  unsigned Flags;
  tClauseTemplate* Partner;
  String Name;
  String Value0Label;
  String Value1Label;
  String VariantLabels[4];
  tTextLists SingleTexts;
  tTextLists ValueTexts;

  tClauseTemplate();
  ~tClauseTemplate() override;

  int Read(tFilterTemplateFile& file);
  int Write(FILE* stream) const;

 private:
  // Set on a main template: it deletes its Partner.
  bool OwnsPartner;

  // Reads one header line and the text under it; 0 when reading must end.
  int ReadText(tFilterTemplateFile& file);
  void ReadCompanion(tFilterTemplateFile& file, const char* marker, int line);
  // The list that a header's fields put their text in, and its priority.
  DListtPrioritizedString* ListFor(tFilterTemplateFile& file, int line, const String& header,
                                   String fields[3], int& priority);
};

// What the user filled in for one clause template: which variants are on and
// the entries for the two value places. Reading and the parseable lines in
// rules/clausdat.cpp, the expansion in rules/expand.cpp. A clause with a companion template is
// held as two records that point at each other; the first, the one in the data
// set, owns the second and deletes it with itself, while deleting the second
// only unhooks it from the first. The template is not owned.
class tClauseData : public tObject, public tPooled<tClauseData> {
 public:
  tClauseData* Partner;
  tClauseTemplate* Template;
  int VariantStates[4];
  DListtString Values0;
  DListtString Values1;

  tClauseData();
  ~tClauseData() override;

  // Links companion in as this record's Partner, owned by this one.
  void AdoptCompanion(tClauseData* companion);
  int Check(int i) const;
  int HasData() const;
  // 1 when the variant's texts are generated: the unlabelled variant 0 and
  // each labelled variant switched on.
  int InEffect(int variant) const;
  // Sets uses[place] to 1 when a value text of a variant in effect mentions
  // that place's resolved form (${0R}, ${1R}): the place's entries then go to
  // the resolver, whether or not the text is skipped for an empty list.
  void ResolvedPlaces(int uses[2]) const;
  int WriteParseable(FILE* out);
  int Read(tFilterDataFile& in);
  // Set once Read has read the record's lines (a record is made afresh for
  // every reading of its data set).
  bool WasRead() const { return ReadIn; }
  // Hands the generated texts of this record and of its companion to out, in
  // the order of generation (rules/expand.cpp).
  int WriteFilter(tTextSink& out);

 private:
  // Set on the first record of a pair: it deletes its Partner.
  bool OwnsPartner;
  bool ReadIn;

  void WriteStates(FILE* out) const;
  void WriteValues(FILE* out);
  void ReadPart(tFilterDataFile& in, int headLine);
  void Expand(tTextSink& out);
};

#endif
