#ifndef QUILLFORM_SOCHILDOPERATIONS_H
#define QUILLFORM_SOCHILDOPERATIONS_H

#include <Quillform/core/SoChildElements.h>
#include <Quillform/core/SoQuillform.h>
#include <cstddef>

/// The child operations of a container whose children are of class \a Child, typed and generic.
///
/// Children are referenced while they are in the list. Null children are ignored; a node that cannot stand in
/// the container is refused with a message. A child that is taken out loses its widgets.
template <class Child>
class SoChildOperations {
public:
  virtual ~SoChildOperations() = default;

  /// Adds a child at the end.
  virtual void addChild(Child* child)
  {
    elements().append(child);
  }

  /// Inserts a child; an index at or past the end appends it.
  virtual void insertChild(Child* child, int index)
  {
    elements().insert(child, index);
  }

  /// The child at \a index; nullptr when there is none.
  virtual Child* getChild(int index) const
  {
    return static_cast<Child*>(elements().get(index));
  }

  /// Number of children.
  virtual int getNumChildren() const
  {
    return elements().getNum();
  }

  /// Index of \a child; -1 when it is not a child.
  virtual int findChild(const Child* child) const
  {
    return elements().find(child);
  }

  /// Removes the child at \a index; an index without a child removes nothing.
  virtual void removeChild(int index)
  {
    elements().remove(index);
  }

  /// Removes a child; a node that is none removes nothing.
  virtual void removeChild(Child* child)
  {
    removeChild(findChild(child));
  }

  /// Removes all children.
  virtual void removeAllChildren()
  {
    elements().removeAll();
  }

  /// Puts a child in the place of another; without the other it does nothing.
  virtual void replaceChild(int index, Child* child)
  {
    elements().replace(index, child);
  }

  /// Puts a child in the place of another; without the other it does nothing.
  virtual void replaceChild(Child* oldChild, Child* newChild)
  {
    replaceChild(findChild(oldChild), newChild);
  }

  /// \name Generic nodes
  /// As above for nodes whose class is not known at compile time.
  /// @{

  /// Adds a node at the end.
  void addChild(SoNode* child)
  {
    elements().append(child);
  }

  /// Adds nothing.
  void addChild(std::nullptr_t) {}

  /// Inserts a node.
  void insertChild(SoNode* child, int index)
  {
    elements().insert(child, index);
  }

  /// Inserts nothing.
  void insertChild(std::nullptr_t, int) {}

  /// Index of a node; -1 when it is not a child.
  int findChild(const SoNode* child) const
  {
    return elements().find(child);
  }

  /// Removes a node, if it is a child.
  void removeChild(SoNode* child)
  {
    removeChild(dynamic_cast<Child*>(child));
  }

  /// Puts a node in the place of the child at an index.
  void replaceChild(int index, SoNode* child)
  {
    elements().replace(index, child);
  }

  /// Puts a node in the place of a child.
  void replaceChild(SoNode* oldChild, SoNode* newChild)
  {
    elements().replace(elements().find(oldChild), newChild);
  }

  /// The same as addChild().
  void internalAddChild(SoNode* child)
  {
    addChild(child);
  }

  /// The same as insertChild().
  void internalInsertChild(SoNode* child, int index)
  {
    insertChild(child, index);
  }

  /// The same as getChild().
  SoNode* internalGetChild(int index) const
  {
    return getChild(index);
  }

  /// The same as findChild().
  int internalFindChild(const SoNode* child) const
  {
    return findChild(child);
  }

  /// The same as removeChild().
  void internalRemoveChild(int index)
  {
    removeChild(index);
  }

  /// The same as removeChild().
  void internalRemoveChild(SoNode* child)
  {
    removeChild(elements().find(child));
  }

  /// The same as removeAllChildren().
  void internalRemoveAllChildren()
  {
    removeAllChildren();
  }

  /// The same as replaceChild().
  void internalReplaceChild(int index, SoNode* child)
  {
    replaceChild(index, child);
  }

  /// The same as replaceChild().
  void internalReplaceChild(SoNode* oldChild, SoNode* newChild)
  {
    replaceChild(oldChild, newChild);
  }
  /// @}

protected:
  /// The list of the container.
  virtual SoChildElements& elements() = 0;

  /// The list of the container.
  const SoChildElements& elements() const
  {
    return const_cast<SoChildOperations*>(this)->elements();
  }
};

#endif // QUILLFORM_SOCHILDOPERATIONS_H
