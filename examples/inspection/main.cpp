// Lists the kinds of document that can be inspected.

#include <inspection/Kinds.h>

#include <iostream>

int main()
{
    for (const QString &kind : KORMAK::Inspection::GetKinds())
        std::cout << kind.toStdString() << '\n';
}
