#include "XmlWriter.h"

#include "Environment.h"

void XmlWriter::PrintPending()
{
    if (!pending)
        return;
    pending = false;
    TiXmlElement &element = open.back();
    element.LinkEndChild(new TiXmlElement("")); // the printer looks whether there is one
    printer.VisitEnter(element, element.FirstAttribute());
}

void XmlWriter::Begin(const TiXmlElement &element)
{
    PrintPending();
    open.push_back(element);
    pending = true;
}

void XmlWriter::Put(const TiXmlElement &element)
{
    PrintPending();
    element.Accept(&printer);
}

void XmlWriter::End()
{
    if (pending)
        open.back().Accept(&printer);
    else
        printer.VisitExit(open.back());
    pending = false;
    open.pop_back();
}

bool XmlWriter::Save(const QString &path)
{
    const QByteArrayView text(printer.CStr(), qsizetype(printer.Size()));
    if (env.codePage.IsUtf8())
        return env.ReplaceFile(path, text) == 0;
    return env.ReplaceFile(path, env.WideToNarrow(QString::fromUtf8(text))) == 0;
}
