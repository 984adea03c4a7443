// The least that a program on Qt Core does: what it takes to start one.
#include <QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
}
