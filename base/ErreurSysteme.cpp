#include "base/ErreurSysteme.h"

#include <cerrno>

void LeverErreurSysteme(int errnoValeur) { throw ErreurSysteme(errnoValeur); }

ErreurExecution ErreurSysteme(int errnoValeur) {
  switch (errnoValeur) {
    case ENOENT:
      return ErreurExecution(Erreur::FichierIntrouvable);
    case ENOTDIR:
      return ErreurExecution(Erreur::CheminIntrouvable);
    case ENOSPC:
    case EDQUOT:
      return ErreurExecution(Erreur::DisquePlein);
    case EACCES:
    case EPERM:
    case EROFS:
      return ErreurExecution(Erreur::PermissionRefusee);
    case EEXIST:
    case EISDIR:
    case ELOOP:
    case EMFILE:
    case ENFILE:
      return ErreurExecution(Erreur::AccesChemin);
    default:
      return ErreurExecution(Erreur::Peripherique);
  }
}
