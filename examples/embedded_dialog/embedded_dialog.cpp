// The window of a program with the debug configurations of a board beside its
// own contents, and what can be done to them in its tool bar.
//
//   embedded_dialog board.xml
#include <QApplication>
#include <QDockWidget>
#include <QLocale>
#include <QMainWindow>
#include <QTextEdit>
#include <QToolBar>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/Dialog.h"

using namespace ZelDebugDialog;

int main(int count, char **arguments) {
  QApplication application(count, arguments);
  InstallDialogTexts(QLocale());

  // Both outlive the page: it asks them.
  DesignModel design;
  if (count != 2 || !ReadDesign({arguments[1], {}, "", ""}, design))
    return 2;
  const Board board(design, "etc");

  QMainWindow window;
  window.setCentralWidget(new QTextEdit(&window));
  auto *dock = new QDockWidget("Debug configurations", &window);
  auto *page = new BoardPage(board, dock);
  dock->setWidget(page);
  window.addDockWidget(Qt::RightDockWidgetArea, dock);

  using Operation = BoardPage::Operation;
  QToolBar *tools = window.addToolBar("Debug");
  for (Operation one : {Operation::save, Operation::undo, Operation::redo})
    tools->addAction(page->action(one));
  window.show();
  return QApplication::exec();
}
