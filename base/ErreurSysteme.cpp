#include "base/ErreurSysteme.h"

#include <cerrno>

#include "base/ErreurExecution.h"

void LeverErreurSysteme(int errnoValeur) {
  switch (errnoValeur) {
    case ENOENT:
      throw ErreurExecution(Erreur::FichierIntrouvable);
    case ENOTDIR:
      throw ErreurExecution(Erreur::CheminIntrouvable);
    case ENOSPC:
    case EDQUOT:
      throw ErreurExecution(Erreur::DisquePlein);
    case EACCES:
    case EPERM:
    case EROFS:
      throw ErreurExecution(Erreur::PermissionRefusee);
    case EEXIST:
    case EISDIR:
    case ELOOP:
    case EMFILE:
    case ENFILE:
      throw ErreurExecution(Erreur::AccesChemin);
    default:
      throw ErreurExecution(Erreur::Peripherique);
  }
}
