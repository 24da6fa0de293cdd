// The toolkit's own words in the language in force: buttons of the open dialog, menus of the text fields.
#pragma once

#include <QTranslator>

class Catalogue {
 public:
  void Suivre(bool francais);

 private:
  bool francais_ = false;
  QTranslator mots_;
};
