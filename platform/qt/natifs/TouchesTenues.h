// Tells the key that is held from the key that is pressed again.
#pragma once

#include <QHash>
#include <QObject>

class QKeyEvent;

// X11 tells a held key as release and press with one time stamp. The toolkit takes them for a repetition only
// when both are in its queue at once, which on a busy machine they are not; so every release of the
// application is watched, wherever it goes.
class TouchesTenues : public QObject {
 public:
  TouchesTenues();
  // A press that the keyboard makes by itself while the key is down. Events without a time stamp are taken at
  // their word.
  bool Repetee(const QKeyEvent &e) const;

  bool eventFilter(QObject *source, QEvent *e) override;

 private:
  QHash<int, quint64> relachees_;  // milliseconds of the last release of each key
};
