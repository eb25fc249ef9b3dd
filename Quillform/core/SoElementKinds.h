#ifndef QUILLFORM_SOELEMENTKINDS_H
#define QUILLFORM_SOELEMENTKINDS_H

class SoQuillform;
class SoSkinFile;

/// What the core needs to know of the element classes without including them. Implemented in the one file
/// that knows all classes.
class SoElementKinds {
public:
  /// Registers all classes in their fixed order, and takes that back in the reverse order.
  static void initClasses();
  static void exitClasses(); ///< takes the registration back

  /// TRUE for a top-level dialog.
  static bool isTopLevelDialog(const SoQuillform* element);

  /// TRUE for a row, column or tab dialog.
  static bool isGroup(const SoQuillform* element);

  /// TRUE for an element whose texts are shown as they are written, backslashes included.
  static bool showsRawText(const SoQuillform* element);

  /// TRUE for an edit text of one line.
  static bool isSingleLineEdit(const SoQuillform* element);

  /// Reads every class's skin file again, in the fixed order.
  static void change3DSkins();
};

#endif // QUILLFORM_SOELEMENTKINDS_H
