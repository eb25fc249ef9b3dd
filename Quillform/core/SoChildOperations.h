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

  virtual void removeChild(Child* child)
  {
    removeChild(findChild(child));
  }

  virtual void removeAllChildren()
  {
    elements().removeAll();
  }

  virtual void replaceChild(int index, Child* child)
  {
    elements().replace(index, child);
  }

  virtual void replaceChild(Child* oldChild, Child* newChild)
  {
    replaceChild(findChild(oldChild), newChild);
  }

  /// \name Generic nodes
  /// As above for nodes whose class is not known at compile time.
  /// @{
  void addChild(SoNode* child)
  {
    elements().append(child);
  }
  void addChild(std::nullptr_t) {}
  void insertChild(SoNode* child, int index)
  {
    elements().insert(child, index);
  }
  void insertChild(std::nullptr_t, int) {}
  int findChild(const SoNode* child) const
  {
    return elements().find(child);
  }
  void removeChild(SoNode* child)
  {
    removeChild(dynamic_cast<Child*>(child));
  }
  void replaceChild(int index, SoNode* child)
  {
    elements().replace(index, child);
  }
  void replaceChild(SoNode* oldChild, SoNode* newChild)
  {
    elements().replace(elements().find(oldChild), newChild);
  }

  void internalAddChild(SoNode* child)
  {
    addChild(child);
  }
  void internalInsertChild(SoNode* child, int index)
  {
    insertChild(child, index);
  }
  SoNode* internalGetChild(int index) const
  {
    return getChild(index);
  }
  int internalFindChild(const SoNode* child) const
  {
    return findChild(child);
  }
  void internalRemoveChild(int index)
  {
    removeChild(index);
  }
  void internalRemoveChild(SoNode* child)
  {
    removeChild(elements().find(child));
  }
  void internalRemoveAllChildren()
  {
    removeAllChildren();
  }
  void internalReplaceChild(int index, SoNode* child)
  {
    replaceChild(index, child);
  }
  void internalReplaceChild(SoNode* oldChild, SoNode* newChild)
  {
    replaceChild(oldChild, newChild);
  }
  /// @}

protected:
  virtual SoChildElements& elements() = 0;
  const SoChildElements& elements() const
  {
    return const_cast<SoChildOperations*>(this)->elements();
  }
};

#endif // QUILLFORM_SOCHILDOPERATIONS_H
