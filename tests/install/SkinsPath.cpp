// Prints the directory of the skin named by its argument, as a program that uses an installed Quillform finds it.
#include <Inventor/Qt/SoQt.h>
#include <Quillform/Quillform.h>
#include <iostream>

int main(int argc, char** argv)
{
  SoQt::init(argv[0]);
  SoQuillform::init();
  SoQuillform::setSkin(argc > 1 ? argv[1] : "default");
  std::cout << SoQuillform::getSkinsPath().getString() << std::endl;
  SoQuillform::finish();
}
