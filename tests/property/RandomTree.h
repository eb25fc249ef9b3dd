#ifndef QUILLFORM_TESTS_RANDOMTREE_H
#define QUILLFORM_TESTS_RANDOMTREE_H

#include <Quillform/Quillform.h>
#include <functional>
#include <property/Random.h>
#include <string>
#include <vector>

/// Elements of all classes that the library knows, with fields of all kinds.
namespace RandomTree {

/// A change of a field, described as in a dialog file.
struct Change {
  SoField* field;
  std::string text;
  std::function<void()> apply;
};

/// The fields of an element that its author sets: all but those of the scene graph's own base classes.
std::vector<SoField*> fieldsOf(SoQuillform* element);

/// Name of a field as in a file.
std::string nameOf(SoQuillform* element, SoField* field);

/// A value for one of the fields; \a anySize allows sizes that no window should have.
Change change(Random& random, SoQuillform* element, bool anySize);

/// An element that can stand in \a container, with some of its fields set and, if it is a container, some children.
/// Nothing when none of the classes that were tried may stand there.
SoQuillform* element(Random& random, bool anySize, int depth);

/// An element of some class, not yet referenced, that \a container may take.
SoTopLevelDialog* dialog(Random& random, bool anySize);

/// All elements below \a root, depth first.
std::vector<SoQuillform*> elementsBelow(SoQuillform* root);

/// Where an element stands, as "1.0.2", and its class.
std::string placeOf(SoQuillform* root, SoQuillform* element);

} // namespace RandomTree

#endif // QUILLFORM_TESTS_RANDOMTREE_H
