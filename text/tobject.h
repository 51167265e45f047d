#ifndef RULEFORGE_TEXT_TOBJECT_H
#define RULEFORGE_TEXT_TOBJECT_H

// Root of everything a DList can hold. The defaults order nothing: Greater is
// always 1, Equals always 0, the key is the object's address, and Clone makes a
// plain tObject, not a copy of a derived object.
class tObject {
 public:
  virtual int Greater(tObject* other);
  virtual int Equals(tObject* other);
  virtual const void* GetKey();
  virtual tObject* Clone();
  virtual ~tObject();
};

#endif
