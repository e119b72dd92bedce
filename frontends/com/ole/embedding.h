#pragma once

/// The control as an object in a document or a form: its site, its size, what can be done with it,
/// and its picture where no window shows it. What happens in the window is another part's.

#include "object/part.h"
#include "ole/activation.h"

namespace tablio::com {

class Embedding final : public PartOf<IOleObject, IOleControl, IViewObject2> {
public:
    Embedding(Control &control, Activation &activation);
    ~Embedding() override;

    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite *site) override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite **site) override;
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Close(DWORD saves) override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject *, BOOL, DWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG message, IOleClientSite *site, LONG index,
                                     HWND parent, LPCRECT position) override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB **verbs) override;
    HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID *id) override;
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR *name) override;
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL *size) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL *size) override;
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink *sink, DWORD *number) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD number) override;
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA **all) override;
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD *status) override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE *) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO *info) override;
    HRESULT STDMETHODCALLTYPE OnMnemonic(LPMSG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID number) override;
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freezes) override;

    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG part, void *, DVTARGETDEVICE *,
                                   HDC targetDevice, HDC device, LPCRECTL area, LPCRECTL,
                                   BOOL(CALLBACK *)(ULONG_PTR), ULONG_PTR) override;
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void *, DVTARGETDEVICE *, HDC,
                                          LOGPALETTE **) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void *, DWORD *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspect, DWORD flags, IAdviseSink *sink) override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD *aspect, DWORD *flags, IAdviseSink **sink) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG part, DVTARGETDEVICE *,
                                        SIZEL *size) override;

private:
    HRESULT showProperties(HWND parent);
    [[nodiscard]] ComPtr<IOleAdviseHolder> advised();

    Activation &activation_;
    /// In hundredths of a millimetre.
    SIZEL extent_;
    ComPtr<IOleAdviseHolder> sinks_;
    ComPtr<IAdviseSink> pictureSink_;
    DWORD pictureFlags_ = 0;
};

} // namespace tablio::com
