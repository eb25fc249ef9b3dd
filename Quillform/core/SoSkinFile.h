#ifndef QUILLFORM_SOSKINFILE_H
#define QUILLFORM_SOSKINFILE_H

#include <Quillform/Export.h>
#include <initializer_list>
#include <string>
#include <vector>

class SoGroup;

/// The skin file of one element class: its named parts, read on first use and replaced in place by a switch.
///
/// There is one live group per part name in the process. All elements show that same group, so that a switch
/// of skins, which replaces the group's children, reaches everything on screen.
class QUILLFORM_API SoSkinFile {
public:
  /// \a partNames in the order in which a switch replaces them. The built-in text, used when the skin in
  /// force has no such file, is the default skin's file of the same name.
  SoSkinFile(const char* fileName, std::initializer_list<const char*> partNames);

  /// The live group of a part, reading the file first if that has not happened yet. Empty when the skin in
  /// force does not define the part; a later skin fills it.
  SoGroup* getPart(const char* partName);

  /// Reads the file unless it has been read already.
  void load();

  /// Reads the file of the skin in force and moves its geometry into the live groups.
  void reload();

  int isLoaded() const;       ///< non-zero once the file has been read
  void setLoaded(int loaded); ///< stores what isLoaded() gives

private:
  void read();
  void keepOneGroupPerName();

  std::string m_fileName;
  std::vector<std::string> m_partNames;
  int m_loaded = 0;
};

/// Declares the skin file of an element class.
#define SO_SKIN_HEADER() \
  /** The skin file with the class's parts. */ \
  static SoSkinFile& getSkin(); \
  /** TRUE once the class's parts have been read. */ \
  static int isSkinLoaded(); \
  static void setSkinLoaded(int loaded); \
  /** Reads the class's parts from the skin in force and replaces those in use. */ \
  static void change3DSkin()

/// Defines it: the class, its file name, and the names of its parts in the order of replacement.
#define SO_SKIN_SOURCE(Class, fileName, ...) \
  SoSkinFile& Class::getSkin() \
  { \
    static SoSkinFile skin(fileName, {__VA_ARGS__}); \
    return skin; \
  } \
  int Class::isSkinLoaded() \
  { \
    return getSkin().isLoaded(); \
  } \
  void Class::setSkinLoaded(int loaded) \
  { \
    getSkin().setLoaded(loaded); \
  } \
  void Class::change3DSkin() \
  { \
    getSkin().reload(); \
  }

/// The text properties that all 3D texts share.
class QUILLFORM_API SoTextSkin {
public:
  static SoSkinFile& getSkin(); ///< the file of the text properties

  /// The live group `DialogTextProperties`: colour, offset and font of 3D text.
  static SoGroup* getProperties();
};

#endif // QUILLFORM_SOSKINFILE_H
