#include "text/tobject.h"

int tObject::Greater(tObject*) { return 1; }

int tObject::Equals(tObject*) { return 0; }

const void* tObject::GetKey() { return this; }

tObject* tObject::Clone() { return new tObject; }

tObject::~tObject() {}
