#ifndef QUILLFORM_SOCHILDELEMENTS_H
#define QUILLFORM_SOCHILDELEMENTS_H

#include <Inventor/SoType.h>
#include <Quillform/Export.h>
#include <functional>
#include <vector>

class SoAction;
class SoInput;
class SoNode;
class SoQuillform;

/// The elements inside a container element: one list, the same in dialogs, groups, menus and launchers.
///
/// The elements stand in the container's own node-kit child list, behind the nodes of the kit itself. While an
/// event travels through that list it is left alone and brought up to date when the event is over.
class QUILLFORM_API SoChildElements {
public:
  /// What a container may hold, and what it does when its contents change.
  struct Rules {
    SoType (*childType)();         ///< base class of all children
    std::function<void()> changed; ///< called after every change
  };

  SoChildElements(SoQuillform* owner, Rules rules); ///< an empty list, of the element that holds the children
  ~SoChildElements();
  SoChildElements(const SoChildElements&) = delete;
  SoChildElements& operator=(const SoChildElements&) = delete;

  int getNum() const;                  ///< number of children
  SoQuillform* get(int index) const;   ///< nullptr outside the list
  int find(const SoNode* child) const; ///< -1 when it is not in the list

  /// Inserts \a child at \a index, or appends it when \a index is past the end. Ignores nullptr; refuses, with a
  /// message, a node of another type, one that has a place in a dialog already, and one that contains the
  /// container or is contained in itself. Returns whether the child was taken.
  bool insert(SoNode* child, int index);
  void append(SoNode* child); ///< adds a child at the end

  /// Takes a child out, its widgets first. Outside the list nothing is taken, but the change is reported.
  void remove(int index);

  /// Takes all children out, the last one first.
  void removeAll();

  void replace(int index, SoNode* child); ///< puts a child in the place of another

  /// \name Files, searches and copies
  /// The container's own operations come down to these.
  /// @{
  SbBool readChildren(SoInput* in); ///< FALSE, after a message, when a child could not be read
  void traverse(SoAction* action);  ///< the children only, not the nodes of the kit
  void addToCopyDict() const;       ///< lets the children be copied with their container

  /// Takes copies of the children of another container.
  void copyFrom(const SoChildElements& from, SbBool copyConnections);
  /// @}

private:
  /// A word that begins no element is most likely a misspelled field; TRUE when that was said.
  bool refusesWord(SoInput* in) const;

  bool isAcceptable(SoNode* child) const;
  void detach(SoQuillform* child);
  void synchronize();
  void synchronizeNow();

  SoQuillform* m_owner;
  Rules m_rules;
  std::vector<SoQuillform*> m_elements; // in order; referenced by the kit's list, or by m_waiting
  std::vector<SoQuillform*> m_waiting;  // referenced here until they stand in the kit's list
  bool m_isStale = false;               // the kit's list is to be brought up to date
};

#endif // QUILLFORM_SOCHILDELEMENTS_H
