#include "app-motifs/fenetre/ListeMotifs.h"

#include <QListWidgetItem>
#include <QPainter>

#include "app-motifs/fenetre/Palette.h"
#include "app-motifs/fenetre/Textes.h"
#include "motifs/Planche.h"

namespace {
constexpr int kFilsCoupon = 28, kCoupon = 56, kAir = 6;  // threads, pixels
constexpr int kTailles = Qt::UserRole + 8;
}  // namespace

QImage Coupon(const Motif &m) {
  QImage image(kFilsCoupon, kFilsCoupon, QImage::Format_RGB32);
  const bool structure = CouleursMuettes(m);
  for (int y = 0; y < kFilsCoupon; ++y) {
    const auto d = static_cast<std::size_t>((kFilsCoupon - 1 - y) % std::max(1, m.Duites()));
    auto *rangee = reinterpret_cast<QRgb *>(image.scanLine(y));
    for (int x = 0; x < kFilsCoupon; ++x) {
      const int place = kFilsCoupon - 1 - x;
      Couleur c = 0;
      if (m.enfilage.empty()) {
        c = m.foules[d] & Lame(x % std::max(1, m.lames) + 1) ? kCaseMarquee : kCaseVide;
      } else {
        const auto f = static_cast<std::size_t>(place % m.Fils());
        const bool leve = m.FilLeve(static_cast<int>(f), static_cast<int>(d));
        c = structure ? (leve ? kChaineDessus : kTrameDessus) : leve ? m.chaine[f] : m.trame[d];
      }
      rangee[x] = 0xFF000000U | c;
    }
  }
  return image;
}

void Inscrire(QListWidgetItem &ligne, const Motif &m, const QImage &coupon, Langue langue) {
  const QString tailles = (langue == Langue::Francais ? QStringLiteral("%1 lames, %2 duites")
                                                      : QStringLiteral("%1 harnesses, %2 picks"))
                              .arg(m.lames)
                              .arg(m.Duites());
  ligne.setText(QFileInfo(Nom(m)).completeBaseName());
  ligne.setData(kTailles, tailles);
  ligne.setData(Qt::DecorationRole, coupon);
  ligne.setData(Qt::AccessibleTextRole,
                QStringList{Nom(m), Texte(m.titre), tailles}.join(QStringLiteral(", ")));
  ligne.setToolTip(QFile::decodeName(m.chemin.c_str()));
}

void PeintreMotifs::paint(QPainter *p, const QStyleOptionViewItem &vue, const QModelIndex &ou) const {
  p->save();
  const QRect la = vue.rect;
  const bool choisi = vue.state & QStyle::State_Selected;
  if (choisi) {
    p->fillRect(la, QColor(Palette::BoisBlond));
    p->fillRect(la.left(), la.top(), 4, la.height(), QColor(Palette::OrangeSombre));
  }
  p->setPen(QColor(Palette::PapierLigne));
  p->drawLine(la.bottomLeft(), la.bottomRight());
  const QRect carre(la.left() + kAir + 2, la.top() + kAir, kCoupon, kCoupon);
  p->setRenderHint(QPainter::SmoothPixmapTransform, false);  // threads keep their edges
  p->drawImage(carre, ou.data(Qt::DecorationRole).value<QImage>());
  p->setPen(QColor(Palette::BoisMoyen));
  p->drawRect(carre.adjusted(-1, -1, 0, 0));
  QFont gras = vue.font;
  gras.setBold(true);
  const QRect texte(carre.right() + 8, la.top(), la.right() - carre.right() - 12, la.height());
  const auto ecrire = [&](const QFont &police, const QString &mots, int y) {
    p->setFont(police);
    const QFontMetrics mesure(police);
    p->drawText(QRect(texte.left(), texte.center().y() + y, texte.width(), 18), Qt::AlignVCenter,
                mesure.elidedText(mots, Qt::ElideRight, texte.width()));
  };
  p->setPen(QColor(choisi ? Palette::EncreNoire : Palette::Encre));
  ecrire(gras, ou.data(Qt::DisplayRole).toString(), -18);
  ecrire(vue.font, ou.data(kTailles).toString(), 1);
  if (vue.state & QStyle::State_HasFocus) {
    p->setPen(QPen(QColor(Palette::Encre), 1, Qt::DotLine));
    p->drawRect(la.adjusted(1, 1, -2, -3));
  }
  p->restore();
}

QSize PeintreMotifs::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const {
  return {kCoupon + 40, kCoupon + 2 * kAir};
}
