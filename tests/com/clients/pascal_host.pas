{ A host in Free Pascal: late binding with named arguments, and a sink of its own that counts events,
  vetoes by a by-reference argument and fails. Its last line says that it came to its end. }
program pascal_host;

{$mode objfpc}{$H+}

uses
  Windows, ActiveX, ComObj, Variants, SysUtils;

const
  Events: TGUID = '{42F36961-4D8E-4336-AD12-8224C96DD9EC}';
  TableChange = 7;

type
  TSink = class(TInterfacedObject, IUnknown, IDispatch)
  public
    Heard: array[1..10] of Integer;
    Fails: Boolean;
    function QueryInterface(constref Id: TGUID; out Obj): HResult; stdcall;
    function GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
    function GetTypeInfo(Index, Locale: LongInt; out Info): HResult; stdcall;
    function GetIDsOfNames(const Id: TGUID; Names: Pointer; Count, Locale: LongInt;
      Ids: Pointer): HResult; stdcall;
    function Invoke(Number: LongInt; const Id: TGUID; Locale: LongInt; Flags: Word; var Params;
      Answer, Failure, WrongArgument: Pointer): HResult; stdcall;
  end;

var
  Grid: OleVariant;
  Sink: TSink;
  Keep: IUnknown;
  Cookie: LongWord;
  Failed: Integer = 0;

function TSink.QueryInterface(constref Id: TGUID; out Obj): HResult; stdcall;
begin
  if IsEqualGUID(Id, Events) then
    Result := inherited QueryInterface(IDispatch, Obj)
  else
    Result := inherited QueryInterface(Id, Obj);
end;

function TSink.GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
begin
  Count := 0;
  Result := S_OK;
end;

function TSink.GetTypeInfo(Index, Locale: LongInt; out Info): HResult; stdcall;
begin
  Result := E_NOTIMPL;
end;

function TSink.GetIDsOfNames(const Id: TGUID; Names: Pointer; Count, Locale: LongInt;
  Ids: Pointer): HResult; stdcall;
begin
  Result := E_NOTIMPL;
end;

function TSink.Invoke(Number: LongInt; const Id: TGUID; Locale: LongInt; Flags: Word; var Params;
  Answer, Failure, WrongArgument: Pointer): HResult; stdcall;
begin
  if (Number >= 1) and (Number <= 10) then
    Inc(Heard[Number]);
  Result := S_OK;
  if Fails and (Number = TableChange) then
  begin
    PExcepInfo(Failure)^.SCode := HResult($80040999);
    PExcepInfo(Failure)^.Description := 'the host refuses';
    Result := DISP_E_EXCEPTION;
  end;
end;

procedure Check(const What: string; Holds: Boolean);
begin
  if not Holds then
  begin
    WriteLn('FAILED: ', What);
    Inc(Failed);
  end;
end;

begin
  CoInitialize(nil);
  Grid := CreateOleObject('Tablio.Tablio');
  Grid.Rows := 5;
  Grid.Cols := 3;
  Grid.FixedRows := 1;
  Grid.SetColProperty(ColIndex := 1, NewColMaxlength := 9, NewColTextHeader := 'Name');
  Check('a named argument', Grid.ColMaxLength[1] = 9);
  Check('another one', Grid.ColTextHeader[1] = 'Name');
  Check('one that is left out', Grid.ColWidth[1] = 1000);
  Grid.TextMatrix[1, 1] := 'text';
  Check('an index', Grid.TextMatrix[1, 1] = 'text');

  Sink := TSink.Create;
  Keep := Sink;
  InterfaceConnect(IUnknown(Grid), Events, Keep, Cookie);
  Grid.AddRow;
  Check('an event', Sink.Heard[TableChange] = 1);
  Sink.Fails := True;
  try
    Grid.AddRow;
    Check('a failing sink is told', False);
  except
    on E: EOleException do
    begin
      Check('its number', E.ErrorCode = HResult($80040999));
      Check('its text', E.Message = 'the host refuses');
    end;
  end;
  InterfaceDisconnect(IUnknown(Grid), Events, Cookie);
  Grid.AddRow;
  Check('nothing after that', Sink.Heard[TableChange] = 2);
  try
    Grid.TextMatrix[99, 1] := 'text';
    Check('an error', False);
  except
    on E: EOleException do
      Check('the error''s number', E.ErrorCode = HResult($80040201));
  end;
  Grid := Unassigned;
  Keep := nil;
  if Failed = 0 then
    WriteLn('ALL DONE');
end.
