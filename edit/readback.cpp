#include "edit/readback.h"

#include <cstdio>

#include "edit/scratch.h"
#include "output/section.h"

namespace {

int SameEntries(const DListtString& one, const DListtString& other) {
  if (one.Size() != other.Size()) return 0;
  DListWalk<const tString> walk(other);
  auto entry = walk.begin();
  for (const tString* mine : Walk<const tString>(one)) {
    if (!(*mine == **entry)) return 0;
    ++entry;
  }
  return 1;
}

int SameRecord(const tClauseData* one, const tClauseData* other) {
  if (!one || !other) return one == other;
  for (int i = 0; i < 4; ++i)
    if (one->Check(i) != other->Check(i)) return 0;
  return SameEntries(one->Values0, other->Values0) && SameEntries(one->Values1, other->Values1);
}

int SameSet(DListtClauseData& one, DListtClauseData& other, String& why) {
  DListWalk<const tClauseData> walk(other);
  auto record = walk.begin();
  for (const tClauseData* mine : Walk<const tClauseData>(one)) {
    if (record == walk.end() || !SameRecord(mine, *record) ||
        !SameRecord(mine->Partner, (*record)->Partner)) {
      why = String("clause '") + mine->Template->Name + "' of data set '" + one.Name(nullptr) +
            "' would read back otherwise";
      return 0;
    }
    ++record;
  }
  return 1;
}

}  // namespace

int StatesReadBack(const tClauseData& record) {
  tClauseData written;
  written.Template = record.Template;
  for (int i = 0; i < 4; ++i) written.VariantStates[i] = record.VariantStates[i];
  tScratchFile scratch;
  if (!scratch.File) return 0;
  written.WriteParseable(scratch.File);
  if (std::fflush(scratch.File) != 0) return 0;
  tClauseData read;
  read.Template = record.Template;
  tFilterDataFile in(scratch.Path.Text());
  if (!in.Eof()) {
    in.GetString(-1);
    read.Read(in);
  }
  return SameRecord(&written, &read);
}

int SameData(const DListOfDListtClauseData& one, const DListOfDListtClauseData& other,
             String& why) {
  if (one.Size() != other.Size()) {
    why = "the data sets would read back otherwise";
    return 0;
  }
  DListWalk<DListtClauseData> walk(other);
  auto set = walk.begin();
  for (DListtClauseData* mine : Walk<DListtClauseData>(one)) {
    if (!(mine->Name(nullptr) == (*set)->Name(nullptr))) {
      why = String("data set '") + mine->Name(nullptr) + "' would read back as '" +
            (*set)->Name(nullptr) + "'";
      return 0;
    }
    if (!SameSet(*mine, **set, why)) return 0;
    ++set;
  }
  return 1;
}

int DataReadsBack(tFilterData& document, String& why) {
  tScratchFile scratch;
  why = "no scratch file could be made to check the data";
  if (!scratch.File) return 0;
  if (WriteSection(scratch.File, document.TemplateTitle.Text(), document.DataSets) < 0 ||
      std::fflush(scratch.File) != 0)
    return 0;
  DListOfDListtClauseData read;
  if (read.Read(scratch.Path.Text(), document.TemplateTitle.Text(), document.MainRules,
                document.LabelRules) < 0)
    return 0;
  return SameData(document.DataSets, read, why);
}
