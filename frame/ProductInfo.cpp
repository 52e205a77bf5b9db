#include <ProductInfo.h>

IProductInfo* IProductInfo::m_pInstance = nullptr;

IProductInfo::IProductInfo()
{
    if (!m_pInstance)
        m_pInstance = this;
}

IProductInfo::IProductInfo(const IProductInfo&) = default;

IProductInfo& IProductInfo::operator=(const IProductInfo&) = default;

IProductInfo::~IProductInfo() = default;

IProductInfo* IProductInfo::Instance()
{
    return m_pInstance;
}

int IProductInfo::GetIs2DProduct()
{
    return 0;
}

int IProductInfo::GetConvertMode() const
{
    return m_convertMode;
}

void IProductInfo::SetConvertMode(int mode)
{
    m_convertMode = mode;
}

int IProductInfo::ExistConvertWarning() const
{
    return m_convertWarning;
}

void IProductInfo::SetConvertWarning(int warning)
{
    m_convertWarning = warning;
}

void IProductInfo::SetSessionFile(CString& path)
{
    m_sessionFile = path;
}

CString IProductInfo::GetSessionFile(CString&)
{
    return m_sessionFile;
}
