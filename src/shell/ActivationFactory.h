#pragma once

#include <QString>

class QObject;
class QQmlEngine;

namespace Zorvane::ActivationFactory {

// Makes an instance of one of the program's runtime classes by its full name
// ("Zorvane.SelfSignedCertPage"). A page is made from its markup, loaded at
// run time. Raises HResultError: ClassNotAvailable for a name it does not
// know, NotImplemented for a class that has no instances.
QObject* ActivateInstance(QQmlEngine& engine, const QString& fullName);

} // namespace Zorvane::ActivationFactory
