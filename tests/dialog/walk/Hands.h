// What people's hands do to the window, at random: keys, clicks, drops, menus,
// answers to questions; and what others do to the files meanwhile.
#ifndef TESTS_DIALOG_WALK_HANDS_H
#define TESTS_DIALOG_WALK_HANDS_H

#include <array>
#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <QObject>
#include <QTemporaryDir>
#include <QTimer>

#include "dialog/Scene.h"

class QDialog;
class QMimeData;

namespace walk {

class Hands {
public:
  Hands(scene::Scene &ofScene, unsigned seed);

  /// One thing; also whatever it is asked about it. Another design may be open
  /// afterwards, or none.
  void act();
  /// What was done last: "save", "type cable.frequency 'fast'".
  const std::string &last() const { return done; }
  /// How often each kind of event came.
  const std::map<std::string, std::size_t> &counts() const { return times; }

private:
  struct Event;
  static const std::vector<Event> &events();

  int below(int end);
  template <class List> const typename List::value_type &pick(const List &list);
  template <class Widget> Widget *anyOf();
  bool hasPage();

  void typeSetting();
  void chooseWord();
  void switchFlag();
  void typeCommand();
  void pasteCommand();
  void pressTool();
  void changeChain();
  void typeCell();
  void pressKey();
  void triggerAction();
  void chooseProcessor();
  void changeFile();
  void click();
  void clickItem();
  void answerBanner();
  void dropText();
  void dropDesign();
  void resize();
  void changePalette();
  void close();
  void openAgain();

  void drop(QWidget &widget, const QMimeData &data);
  void awaitDesign();
  void answerDialog();
  void tickItems(QDialog &dialog);

  scene::Scene *scene;
  std::mt19937 random;
  QTimer answers;
  QTemporaryDir designs; ///< One that cannot be read.
  std::string done;
  std::map<std::string, std::size_t> times;
};

} // namespace walk

#endif
