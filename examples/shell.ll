; ModuleID = 'shell.cpp'
source_filename = "shell.cpp"
target datalayout = "e-m:e-p:16:16-i32:16-i64:16-f32:16-f64:16-a:8-n8:16-S16"
target triple = "msp430"

declare { %"class.shell::Parser"*, %"struct.shell::Variable"* } @llvm.dbg.order()
%"struct.shell::Command" = type { i8*, void (%"class.shell::Parser"*)* }
%"class.shell::Parser" = type <{ i8*, i8, i8 }>
%"struct.shell::Variable" = type { %"struct.shell::Variable"*, [8 x i8], i32 }

$_ZN5shell6ParserC2EPKc = comdat any

$_ZN5shell6Parser4wordEPci = comdat any

$_ZN5shell6Parser4skipEv = comdat any

$_ZN5shell6Parser10expressionEv = comdat any

$_ZNK5shell6Parser2okEv = comdat any

$_ZN5shell6Parser4termEv = comdat any

$_ZN5shell6Parser6acceptEc = comdat any

$_ZN5shell6Parser6factorEv = comdat any

$_ZN5shell6Parser6numberEv = comdat any

@_ZN5shellL8commandsE = internal constant [3 x %"struct.shell::Command"] [%"struct.shell::Command" { i8* getelementptr inbounds ([6 x i8], [6 x i8]* @.str, i32 0, i32 0), void (%"class.shell::Parser"*)* @_ZN5shellL8do_printERNS_6ParserE }, %"struct.shell::Command" { i8* getelementptr inbounds ([4 x i8], [4 x i8]* @.str.1, i32 0, i32 0), void (%"class.shell::Parser"*)* @_ZN5shellL6do_letERNS_6ParserE }, %"struct.shell::Command" { i8* getelementptr inbounds ([5 x i8], [5 x i8]* @.str.2, i32 0, i32 0), void (%"class.shell::Parser"*)* @_ZN5shellL7do_listERNS_6ParserE }], align 2
@.str = private unnamed_addr constant [6 x i8] c"print\00", align 1
@.str.1 = private unnamed_addr constant [4 x i8] c"let\00", align 1
@.str.2 = private unnamed_addr constant [5 x i8] c"list\00", align 1
@.str.3 = private unnamed_addr constant [6 x i8] c"error\00", align 1
@_ZN5shellL9variablesE = internal global %"struct.shell::Variable"* null, align 2
@.str.4 = private unnamed_addr constant [6 x i8] c"no =\0A\00", align 1
@_ZN5shellL4usedE = internal global i16 0, align 2
@_ZN5shellL4poolE = internal global [6 x %"struct.shell::Variable"] zeroinitializer, align 2
@.str.5 = private unnamed_addr constant [4 x i8] c" = \00", align 1

; Function Attrs: mustprogress noinline nounwind optnone
define zeroext i1 @execute(i8* %line) #0 {
entry:
  %retval = alloca i1, align 1
  %line.addr = alloca i8*, align 2
  %parser = alloca %"class.shell::Parser", align 2
  %name = alloca [8 x i8], align 1
  %__range1 = alloca [3 x %"struct.shell::Command"]*, align 2
  %__begin1 = alloca %"struct.shell::Command"*, align 2
  %__end1 = alloca %"struct.shell::Command"*, align 2
  %command = alloca %"struct.shell::Command"*, align 2
  store i8* %line, i8** %line.addr, align 2
  %0 = load i8*, i8** %line.addr, align 2
  call void @_ZN5shell6ParserC2EPKc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %parser, i8* %0)
  %arraydecay = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  call void @_ZN5shell6Parser4wordEPci(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %parser, i8* %arraydecay, i16 8)
  store [3 x %"struct.shell::Command"]* @_ZN5shellL8commandsE, [3 x %"struct.shell::Command"]** %__range1, align 2
  store %"struct.shell::Command"* getelementptr inbounds ([3 x %"struct.shell::Command"], [3 x %"struct.shell::Command"]* @_ZN5shellL8commandsE, i16 0, i16 0), %"struct.shell::Command"** %__begin1, align 2
  store %"struct.shell::Command"* getelementptr inbounds ([3 x %"struct.shell::Command"], [3 x %"struct.shell::Command"]* @_ZN5shellL8commandsE, i64 1, i16 0), %"struct.shell::Command"** %__end1, align 2
  br label %for.cond

for.cond:
  %1 = load %"struct.shell::Command"*, %"struct.shell::Command"** %__begin1, align 2
  %2 = load %"struct.shell::Command"*, %"struct.shell::Command"** %__end1, align 2
  %cmp = icmp ne %"struct.shell::Command"* %1, %2
  br i1 %cmp, label %for.body, label %for.end

for.body:
  %3 = load %"struct.shell::Command"*, %"struct.shell::Command"** %__begin1, align 2
  store %"struct.shell::Command"* %3, %"struct.shell::Command"** %command, align 2
  %4 = load %"struct.shell::Command"*, %"struct.shell::Command"** %command, align 2
  %name1 = getelementptr inbounds %"struct.shell::Command", %"struct.shell::Command"* %4, i32 0, i32 0
  %5 = load i8*, i8** %name1, align 2
  %arraydecay2 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  %call = call zeroext i1 @_ZN5shellL4sameEPKcS1_(i8* %5, i8* %arraydecay2)
  br i1 %call, label %if.then, label %if.end

if.then:
  %6 = load %"struct.shell::Command"*, %"struct.shell::Command"** %command, align 2
  %run = getelementptr inbounds %"struct.shell::Command", %"struct.shell::Command"* %6, i32 0, i32 1
  %7 = load void (%"class.shell::Parser"*)*, void (%"class.shell::Parser"*)** %run, align 2
  call void %7(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %parser)
  store i1 true, i1* %retval, align 1
  br label %return

if.end:
  br label %for.inc

for.inc:
  %8 = load %"struct.shell::Command"*, %"struct.shell::Command"** %__begin1, align 2
  %incdec.ptr = getelementptr inbounds %"struct.shell::Command", %"struct.shell::Command"* %8, i32 1
  store %"struct.shell::Command"* %incdec.ptr, %"struct.shell::Command"** %__begin1, align 2
  br label %for.cond

for.end:
  store i1 false, i1* %retval, align 1
  br label %return

return:
  %9 = load i1, i1* %retval, align 1
  ret i1 %9
}

; Function Attrs: noinline nounwind optnone
define linkonce_odr void @_ZN5shell6ParserC2EPKc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this, i8* %line) unnamed_addr #1 comdat align 2 {
entry:
  %this.addr = alloca %"class.shell::Parser"*, align 2
  %line.addr = alloca i8*, align 2
  store %"class.shell::Parser"* %this, %"class.shell::Parser"** %this.addr, align 2
  store i8* %line, i8** %line.addr, align 2
  %this1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %this.addr, align 2
  %at = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %0 = load i8*, i8** %line.addr, align 2
  store i8* %0, i8** %at, align 2
  %failed = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 1
  store i8 0, i8* %failed, align 2
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN5shell6Parser4wordEPci(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this, i8* %into, i16 %size) #0 comdat align 2 {
entry:
  %this.addr = alloca %"class.shell::Parser"*, align 2
  %into.addr = alloca i8*, align 2
  %size.addr = alloca i16, align 2
  %length = alloca i16, align 2
  store %"class.shell::Parser"* %this, %"class.shell::Parser"** %this.addr, align 2
  store i8* %into, i8** %into.addr, align 2
  store i16 %size, i16* %size.addr, align 2
  %this1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %this.addr, align 2
  call void @_ZN5shell6Parser4skipEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  store i16 0, i16* %length, align 2
  br label %while.cond

while.cond:
  %at = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %0 = load i8*, i8** %at, align 2
  %1 = load i8, i8* %0, align 1
  %call = call zeroext i1 @_ZN5shellL9is_letterEc(i8 signext %1)
  br i1 %call, label %lor.end, label %lor.rhs

lor.rhs:
  %at2 = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %2 = load i8*, i8** %at2, align 2
  %3 = load i8, i8* %2, align 1
  %call3 = call zeroext i1 @_ZN5shellL8is_digitEc(i8 signext %3)
  %taken = bitcast i1 %call3 to i1
  br label %lor.end

lor.end:
  %4 = phi i1 [ true, %while.cond ], [ %taken, %lor.rhs ]
  br i1 %4, label %while.body, label %while.end

while.body:
  %5 = load i16, i16* %length, align 2
  %6 = load i16, i16* %size.addr, align 2
  %sub = sub nsw i16 %6, 1
  %cmp = icmp slt i16 %5, %sub
  br i1 %cmp, label %if.then, label %if.end

if.then:
  %at4 = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %7 = load i8*, i8** %at4, align 2
  %8 = load i8, i8* %7, align 1
  %9 = load i8*, i8** %into.addr, align 2
  %10 = load i16, i16* %length, align 2
  %inc = add nsw i16 %10, 1
  store i16 %inc, i16* %length, align 2
  %arrayidx = getelementptr inbounds i8, i8* %9, i16 %10
  store i8 %8, i8* %arrayidx, align 1
  br label %if.end

if.end:
  %at5 = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %11 = load i8*, i8** %at5, align 2
  %incdec.ptr = getelementptr inbounds i8, i8* %11, i32 1
  store i8* %incdec.ptr, i8** %at5, align 2
  br label %while.cond

while.end:
  %12 = load i8*, i8** %into.addr, align 2
  %13 = load i16, i16* %length, align 2
  %arrayidx6 = getelementptr inbounds i8, i8* %12, i16 %13
  store i8 0, i8* %arrayidx6, align 1
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal zeroext i1 @_ZN5shellL4sameEPKcS1_(i8* %a, i8* %b) #0 {
entry:
  %a.addr = alloca i8*, align 2
  %b.addr = alloca i8*, align 2
  store i8* %a, i8** %a.addr, align 2
  store i8* %b, i8** %b.addr, align 2
  br label %while.cond

while.cond:
  %0 = load i8*, i8** %a.addr, align 2
  %1 = load i8, i8* %0, align 1
  %tobool = icmp ne i8 %1, 0
  br i1 %tobool, label %land.rhs, label %land.end

land.rhs:
  %2 = load i8*, i8** %a.addr, align 2
  %3 = load i8, i8* %2, align 1
  %conv = sext i8 %3 to i16
  %4 = load i8*, i8** %b.addr, align 2
  %5 = load i8, i8* %4, align 1
  %conv1 = sext i8 %5 to i16
  %cmp = icmp eq i16 %conv, %conv1
  br label %land.end

land.end:
  %6 = phi i1 [ false, %while.cond ], [ %cmp, %land.rhs ]
  br i1 %6, label %while.body, label %while.end

while.body:
  %7 = load i8*, i8** %a.addr, align 2
  %incdec.ptr = getelementptr inbounds i8, i8* %7, i32 1
  store i8* %incdec.ptr, i8** %a.addr, align 2
  %8 = load i8*, i8** %b.addr, align 2
  %incdec.ptr2 = getelementptr inbounds i8, i8* %8, i32 1
  store i8* %incdec.ptr2, i8** %b.addr, align 2
  br label %while.cond

while.end:
  %9 = load i8*, i8** %a.addr, align 2
  %10 = load i8, i8* %9, align 1
  %conv3 = sext i8 %10 to i16
  %11 = load i8*, i8** %b.addr, align 2
  %12 = load i8, i8* %11, align 1
  %conv4 = sext i8 %12 to i16
  %cmp5 = icmp eq i16 %conv3, %conv4
  ret i1 %cmp5
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr void @_ZN5shell6Parser4skipEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this) #0 comdat align 2 {
entry:
  %this.addr = alloca %"class.shell::Parser"*, align 2
  store %"class.shell::Parser"* %this, %"class.shell::Parser"** %this.addr, align 2
  %this1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %this.addr, align 2
  br label %while.cond

while.cond:
  %at = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %0 = load i8*, i8** %at, align 2
  %1 = load i8, i8* %0, align 1
  %conv = sext i8 %1 to i16
  %cmp = icmp eq i16 %conv, 32
  br i1 %cmp, label %while.body, label %while.end

while.body:
  %at2 = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %2 = load i8*, i8** %at2, align 2
  %incdec.ptr = getelementptr inbounds i8, i8* %2, i32 1
  store i8* %incdec.ptr, i8** %at2, align 2
  br label %while.cond

while.end:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal zeroext i1 @_ZN5shellL9is_letterEc(i8 signext %c) #0 {
entry:
  %c.addr = alloca i8, align 1
  store i8 %c, i8* %c.addr, align 1
  %0 = load i8, i8* %c.addr, align 1
  %conv = sext i8 %0 to i16
  %cmp = icmp sge i16 %conv, 97
  br i1 %cmp, label %land.lhs.true, label %lor.lhs.false

land.lhs.true:
  %1 = load i8, i8* %c.addr, align 1
  %conv1 = sext i8 %1 to i16
  %cmp2 = icmp sle i16 %conv1, 122
  br i1 %cmp2, label %lor.end, label %lor.lhs.false

lor.lhs.false:
  %2 = load i8, i8* %c.addr, align 1
  %conv3 = sext i8 %2 to i16
  %cmp4 = icmp sge i16 %conv3, 65
  br i1 %cmp4, label %land.lhs.true5, label %lor.rhs

land.lhs.true5:
  %3 = load i8, i8* %c.addr, align 1
  %conv6 = sext i8 %3 to i16
  %cmp7 = icmp sle i16 %conv6, 90
  br i1 %cmp7, label %lor.end, label %lor.rhs

lor.rhs:
  %4 = load i8, i8* %c.addr, align 1
  %conv8 = sext i8 %4 to i16
  %cmp9 = icmp eq i16 %conv8, 95
  br label %lor.end

lor.end:
  %5 = phi i1 [ true, %land.lhs.true5 ], [ true, %land.lhs.true ], [ %cmp9, %lor.rhs ]
  ret i1 %5
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal zeroext i1 @_ZN5shellL8is_digitEc(i8 signext %c) #0 {
entry:
  %c.addr = alloca i8, align 1
  store i8 %c, i8* %c.addr, align 1
  %0 = load i8, i8* %c.addr, align 1
  %conv = sext i8 %0 to i16
  %cmp = icmp sge i16 %conv, 48
  br i1 %cmp, label %land.rhs, label %land.end

land.rhs:
  %1 = load i8, i8* %c.addr, align 1
  %conv1 = sext i8 %1 to i16
  %cmp2 = icmp sle i16 %conv1, 57
  br label %land.end

land.end:
  %2 = phi i1 [ false, %entry ], [ %cmp2, %land.rhs ]
  ret i1 %2
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal void @_ZN5shellL8do_printERNS_6ParserE(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %parser) #0 {
entry:
  %parser.addr = alloca %"class.shell::Parser"*, align 2
  %value = alloca i32, align 2
  store %"class.shell::Parser"* %parser, %"class.shell::Parser"** %parser.addr, align 2
  %0 = load %"class.shell::Parser"*, %"class.shell::Parser"** %parser.addr, align 2
  %call = call i32 @_ZN5shell6Parser10expressionEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %0)
  store i32 %call, i32* %value, align 2
  %1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %parser.addr, align 2
  %call1 = call zeroext i1 @_ZNK5shell6Parser2okEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %1)
  br i1 %call1, label %if.then, label %if.else

if.then:
  %2 = load i32, i32* %value, align 2
  call void @_ZN5shellL5printEl(i32 %2)
  br label %if.end

if.else:
  call void @_ZN5shellL5printEPKc(i8* getelementptr inbounds ([6 x i8], [6 x i8]* @.str.3, i16 0, i16 0))
  br label %if.end

if.end:
  call void @put_char(i8 signext 10)
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal void @_ZN5shellL6do_letERNS_6ParserE(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %parser) #0 {
entry:
  %parser.addr = alloca %"class.shell::Parser"*, align 2
  %name = alloca [8 x i8], align 1
  %value = alloca i32, align 2
  %variable = alloca %"struct.shell::Variable"*, align 2
  store %"class.shell::Parser"* %parser, %"class.shell::Parser"** %parser.addr, align 2
  %0 = load %"class.shell::Parser"*, %"class.shell::Parser"** %parser.addr, align 2
  %arraydecay = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  call void @_ZN5shell6Parser4wordEPci(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %0, i8* %arraydecay, i16 8)
  %1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %parser.addr, align 2
  %call = call zeroext i1 @_ZN5shell6Parser6acceptEc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %1, i8 signext 61)
  br i1 %call, label %if.end, label %if.then

if.then:
  call void @_ZN5shellL5printEPKc(i8* getelementptr inbounds ([6 x i8], [6 x i8]* @.str.4, i16 0, i16 0))
  br label %if.end12

if.end:
  %2 = load %"class.shell::Parser"*, %"class.shell::Parser"** %parser.addr, align 2
  %call1 = call i32 @_ZN5shell6Parser10expressionEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %2)
  store i32 %call1, i32* %value, align 2
  %arraydecay2 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  %call3 = call %"struct.shell::Variable"* @_ZN5shellL4findEPKc(i8* %arraydecay2)
  store %"struct.shell::Variable"* %call3, %"struct.shell::Variable"** %variable, align 2
  %3 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %variable, align 2
  %tobool = icmp ne %"struct.shell::Variable"* %3, null
  br i1 %tobool, label %if.end7, label %if.then4

if.then4:
  %arraydecay5 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  %call6 = call %"struct.shell::Variable"* @_ZN5shellL4makeEPKc(i8* %arraydecay5)
  store %"struct.shell::Variable"* %call6, %"struct.shell::Variable"** %variable, align 2
  br label %if.end7

if.end7:
  %4 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %variable, align 2
  %tobool8 = icmp ne %"struct.shell::Variable"* %4, null
  br i1 %tobool8, label %land.lhs.true, label %if.end12

land.lhs.true:
  %5 = load %"class.shell::Parser"*, %"class.shell::Parser"** %parser.addr, align 2
  %call9 = call zeroext i1 @_ZNK5shell6Parser2okEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %5)
  br i1 %call9, label %if.then10, label %if.end12

if.then10:
  %6 = load i32, i32* %value, align 2
  %7 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %variable, align 2
  %value11 = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %7, i32 0, i32 2
  store i32 %6, i32* %value11, align 2
  br label %if.end12

if.end12:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal void @_ZN5shellL7do_listERNS_6ParserE(%"class.shell::Parser"* nonnull align 2 dereferenceable(3)) #0 {
entry:
  %.addr = alloca %"class.shell::Parser"*, align 2
  %v = alloca %"struct.shell::Variable"*, align 2
  store %"class.shell::Parser"* %0, %"class.shell::Parser"** %.addr, align 2
  %1 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** @_ZN5shellL9variablesE, align 2
  store %"struct.shell::Variable"* %1, %"struct.shell::Variable"** %v, align 2
  br label %for.cond

for.cond:
  %2 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %v, align 2
  %tobool = icmp ne %"struct.shell::Variable"* %2, null
  br i1 %tobool, label %for.body, label %for.end

for.body:
  %3 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %v, align 2
  %name = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %3, i32 0, i32 1
  %arraydecay = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  call void @_ZN5shellL5printEPKc(i8* %arraydecay)
  call void @_ZN5shellL5printEPKc(i8* getelementptr inbounds ([4 x i8], [4 x i8]* @.str.5, i16 0, i16 0))
  %4 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %v, align 2
  %value = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %4, i32 0, i32 2
  %5 = load i32, i32* %value, align 2
  call void @_ZN5shellL5printEl(i32 %5)
  call void @put_char(i8 signext 10)
  br label %for.inc

for.inc:
  %6 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %v, align 2
  %next = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %6, i32 0, i32 0
  %7 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %next, align 2
  store %"struct.shell::Variable"* %7, %"struct.shell::Variable"** %v, align 2
  br label %for.cond

for.end:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define weak i32 @_ZN5shell6Parser10expressionEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this) #0 comdat align 2 {
entry:
  %this.addr = alloca %"class.shell::Parser"*, align 2
  %value = alloca i32, align 2
  store %"class.shell::Parser"* %this, %"class.shell::Parser"** %this.addr, align 2
  %this1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %this.addr, align 2
  %call = call i32 @_ZN5shell6Parser4termEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  store i32 %call, i32* %value, align 2
  br label %for.cond

for.cond:
  %call2 = call zeroext i1 @_ZN5shell6Parser6acceptEc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1, i8 signext 43)
  br i1 %call2, label %if.then, label %if.else

if.then:
  %call3 = call i32 @_ZN5shell6Parser4termEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  %0 = load i32, i32* %value, align 2
  %add = add nsw i32 %0, %call3
  store i32 %add, i32* %value, align 2
  br label %if.end8

if.else:
  %call4 = call zeroext i1 @_ZN5shell6Parser6acceptEc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1, i8 signext 45)
  br i1 %call4, label %if.then5, label %if.else7

if.then5:
  %call6 = call i32 @_ZN5shell6Parser4termEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  %1 = load i32, i32* %value, align 2
  %sub = sub nsw i32 %1, %call6
  store i32 %sub, i32* %value, align 2
  br label %if.end

if.else7:
  %2 = load i32, i32* %value, align 2
  ret i32 %2

if.end:
  br label %if.end8

if.end8:
  br label %for.cond
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i1 @_ZNK5shell6Parser2okEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this) #0 comdat align 2 {
entry:
  %this.addr = alloca %"class.shell::Parser"*, align 2
  store %"class.shell::Parser"* %this, %"class.shell::Parser"** %this.addr, align 2
  %this1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %this.addr, align 2
  %failed = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 1
  %0 = load i8, i8* %failed, align 2
  %tobool = trunc i8 %0 to i1
  %lnot = xor i1 %tobool, true
  ret i1 %lnot
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal void @_ZN5shellL5printEl(i32 %value) #0 {
entry:
  %value.addr = alloca i32, align 2
  store i32 %value, i32* %value.addr, align 2
  %0 = load i32, i32* %value.addr, align 2
  %cmp = icmp slt i32 %0, 0
  br i1 %cmp, label %if.then, label %if.end

if.then:
  call void @put_char(i8 signext 45)
  %1 = load i32, i32* %value.addr, align 2
  %sub = sub nsw i32 0, %1
  store i32 %sub, i32* %value.addr, align 2
  br label %if.end

if.end:
  %2 = load i32, i32* %value.addr, align 2
  %cmp1 = icmp sgt i32 %2, 9
  br i1 %cmp1, label %if.then2, label %if.end3

if.then2:
  %3 = load i32, i32* %value.addr, align 2
  %div = sdiv i32 %3, 10
  call void @_ZN5shellL5printEl(i32 %div)
  br label %if.end3

if.end3:
  %4 = load i32, i32* %value.addr, align 2
  %rem = srem i32 %4, 10
  %add = add nsw i32 48, %rem
  %conv = trunc i32 %add to i8
  call void @put_char(i8 signext %conv)
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal void @_ZN5shellL5printEPKc(i8* %text) #0 {
entry:
  %text.addr = alloca i8*, align 2
  store i8* %text, i8** %text.addr, align 2
  br label %while.cond

while.cond:
  %0 = load i8*, i8** %text.addr, align 2
  %1 = load i8, i8* %0, align 1
  %tobool = icmp ne i8 %1, 0
  br i1 %tobool, label %while.body, label %while.end

while.body:
  %2 = load i8*, i8** %text.addr, align 2
  %incdec.ptr = getelementptr inbounds i8, i8* %2, i32 1
  store i8* %incdec.ptr, i8** %text.addr, align 2
  %3 = load i8, i8* %2, align 1
  call void @put_char(i8 signext %3)
  br label %while.cond

while.end:
  ret void
}

declare void @put_char(i8 signext) #2

; Function Attrs: mustprogress noinline nounwind optnone
define weak i32 @_ZN5shell6Parser4termEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this) #0 comdat align 2 {
entry:
  %this.addr = alloca %"class.shell::Parser"*, align 2
  %value = alloca i32, align 2
  %by = alloca i32, align 2
  store %"class.shell::Parser"* %this, %"class.shell::Parser"** %this.addr, align 2
  %this1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %this.addr, align 2
  %call = call i32 @_ZN5shell6Parser6factorEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  store i32 %call, i32* %value, align 2
  br label %for.cond

for.cond:
  %call2 = call zeroext i1 @_ZN5shell6Parser6acceptEc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1, i8 signext 42)
  br i1 %call2, label %if.then, label %if.else

if.then:
  %call3 = call i32 @_ZN5shell6Parser6factorEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  %0 = load i32, i32* %value, align 2
  %mul = mul nsw i32 %0, %call3
  store i32 %mul, i32* %value, align 2
  br label %if.end11

if.else:
  %call4 = call zeroext i1 @_ZN5shell6Parser6acceptEc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1, i8 signext 47)
  br i1 %call4, label %if.then5, label %if.else9

if.then5:
  %call6 = call i32 @_ZN5shell6Parser6factorEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  store i32 %call6, i32* %by, align 2
  %1 = load i32, i32* %by, align 2
  %cmp = icmp eq i32 %1, 0
  br i1 %cmp, label %if.then7, label %if.else8

if.then7:
  %failed = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 1
  store i8 1, i8* %failed, align 2
  br label %if.end

if.else8:
  %2 = load i32, i32* %by, align 2
  %3 = load i32, i32* %value, align 2
  %div = sdiv i32 %3, %2
  store i32 %div, i32* %value, align 2
  br label %if.end

if.end:
  br label %if.end10

if.else9:
  %4 = load i32, i32* %value, align 2
  ret i32 %4

if.end10:
  br label %if.end11

if.end11:
  br label %for.cond
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr zeroext i1 @_ZN5shell6Parser6acceptEc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this, i8 signext %c) #0 comdat align 2 {
entry:
  %retval = alloca i1, align 1
  %this.addr = alloca %"class.shell::Parser"*, align 2
  %c.addr = alloca i8, align 1
  store %"class.shell::Parser"* %this, %"class.shell::Parser"** %this.addr, align 2
  store i8 %c, i8* %c.addr, align 1
  %this1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %this.addr, align 2
  call void @_ZN5shell6Parser4skipEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  %at = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %0 = load i8*, i8** %at, align 2
  %1 = load i8, i8* %0, align 1
  %conv = sext i8 %1 to i16
  %2 = load i8, i8* %c.addr, align 1
  %conv2 = sext i8 %2 to i16
  %cmp = icmp ne i16 %conv, %conv2
  br i1 %cmp, label %if.then, label %if.end

if.then:
  store i1 false, i1* %retval, align 1
  br label %return

if.end:
  %at3 = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %3 = load i8*, i8** %at3, align 2
  %incdec.ptr = getelementptr inbounds i8, i8* %3, i32 1
  store i8* %incdec.ptr, i8** %at3, align 2
  store i1 true, i1* %retval, align 1
  br label %return

return:
  %4 = load i1, i1* %retval, align 1
  ret i1 %4
}

; Function Attrs: mustprogress noinline nounwind optnone
define weak i32 @_ZN5shell6Parser6factorEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this) #0 comdat align 2 {
entry:
  %retval = alloca i32, align 2
  %this.addr = alloca %"class.shell::Parser"*, align 2
  %value = alloca i32, align 2
  %name = alloca [8 x i8], align 1
  %variable = alloca %"struct.shell::Variable"*, align 2
  store %"class.shell::Parser"* %this, %"class.shell::Parser"** %this.addr, align 2
  %this1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %this.addr, align 2
  %call = call zeroext i1 @_ZN5shell6Parser6acceptEc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1, i8 signext 45)
  br i1 %call, label %if.then, label %if.end

if.then:
  %call2 = call i32 @_ZN5shell6Parser6factorEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  %sub = sub nsw i32 0, %call2
  store i32 %sub, i32* %retval, align 2
  br label %return

if.end:
  %call3 = call zeroext i1 @_ZN5shell6Parser6acceptEc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1, i8 signext 40)
  br i1 %call3, label %if.then4, label %if.end9

if.then4:
  %call5 = call i32 @_ZN5shell6Parser10expressionEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  store i32 %call5, i32* %value, align 2
  %call6 = call zeroext i1 @_ZN5shell6Parser6acceptEc(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1, i8 signext 41)
  br i1 %call6, label %if.end8, label %if.then7

if.then7:
  %failed = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 1
  store i8 1, i8* %failed, align 2
  br label %if.end8

if.end8:
  %0 = load i32, i32* %value, align 2
  store i32 %0, i32* %retval, align 2
  br label %return

if.end9:
  %at = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %1 = load i8*, i8** %at, align 2
  %2 = load i8, i8* %1, align 1
  %call10 = call zeroext i1 @_ZN5shellL8is_digitEc(i8 signext %2)
  br i1 %call10, label %if.then11, label %if.end13

if.then11:
  %call12 = call i32 @_ZN5shell6Parser6numberEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1)
  store i32 %call12, i32* %retval, align 2
  br label %return

if.end13:
  %arraydecay = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  call void @_ZN5shell6Parser4wordEPci(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this1, i8* %arraydecay, i16 8)
  %arraydecay14 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  %call15 = call %"struct.shell::Variable"* @_ZN5shellL4findEPKc(i8* %arraydecay14)
  store %"struct.shell::Variable"* %call15, %"struct.shell::Variable"** %variable, align 2
  %3 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %variable, align 2
  %tobool = icmp ne %"struct.shell::Variable"* %3, null
  br i1 %tobool, label %if.end18, label %if.then16

if.then16:
  %failed17 = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 1
  store i8 1, i8* %failed17, align 2
  store i32 0, i32* %retval, align 2
  br label %return

if.end18:
  %4 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %variable, align 2
  %value19 = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %4, i32 0, i32 2
  %5 = load i32, i32* %value19, align 2
  store i32 %5, i32* %retval, align 2
  br label %return

return:
  %6 = load i32, i32* %retval, align 2
  ret i32 %6
}

; Function Attrs: mustprogress noinline nounwind optnone
define linkonce_odr i32 @_ZN5shell6Parser6numberEv(%"class.shell::Parser"* nonnull align 2 dereferenceable(3) %this) #0 comdat align 2 {
entry:
  %this.addr = alloca %"class.shell::Parser"*, align 2
  %value = alloca i32, align 2
  store %"class.shell::Parser"* %this, %"class.shell::Parser"** %this.addr, align 2
  %this1 = load %"class.shell::Parser"*, %"class.shell::Parser"** %this.addr, align 2
  store i32 0, i32* %value, align 2
  br label %while.cond

while.cond:
  %at = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %0 = load i8*, i8** %at, align 2
  %1 = load i8, i8* %0, align 1
  %call = call zeroext i1 @_ZN5shellL8is_digitEc(i8 signext %1)
  br i1 %call, label %while.body, label %while.end

while.body:
  %2 = load i32, i32* %value, align 2
  %mul = mul nsw i32 %2, 10
  %at2 = getelementptr inbounds %"class.shell::Parser", %"class.shell::Parser"* %this1, i32 0, i32 0
  %3 = load i8*, i8** %at2, align 2
  %incdec.ptr = getelementptr inbounds i8, i8* %3, i32 1
  store i8* %incdec.ptr, i8** %at2, align 2
  %4 = load i8, i8* %3, align 1
  %conv = sext i8 %4 to i16
  %sub = sub nsw i16 %conv, 48
  %conv3 = sext i16 %sub to i32
  %add = add nsw i32 %mul, %conv3
  store i32 %add, i32* %value, align 2
  br label %while.cond

while.end:
  %5 = load i32, i32* %value, align 2
  ret i32 %5
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal %"struct.shell::Variable"* @_ZN5shellL4findEPKc(i8* %name) #0 {
entry:
  %retval = alloca %"struct.shell::Variable"*, align 2
  %name.addr = alloca i8*, align 2
  %v = alloca %"struct.shell::Variable"*, align 2
  store i8* %name, i8** %name.addr, align 2
  %0 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** @_ZN5shellL9variablesE, align 2
  store %"struct.shell::Variable"* %0, %"struct.shell::Variable"** %v, align 2
  br label %for.cond

for.cond:
  %1 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %v, align 2
  %tobool = icmp ne %"struct.shell::Variable"* %1, null
  br i1 %tobool, label %for.body, label %for.end

for.body:
  %2 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %v, align 2
  %name1 = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %2, i32 0, i32 1
  %arraydecay = getelementptr inbounds [8 x i8], [8 x i8]* %name1, i16 0, i16 0
  %3 = load i8*, i8** %name.addr, align 2
  %call = call zeroext i1 @_ZN5shellL4sameEPKcS1_(i8* %arraydecay, i8* %3)
  br i1 %call, label %if.then, label %if.end

if.then:
  %4 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %v, align 2
  store %"struct.shell::Variable"* %4, %"struct.shell::Variable"** %retval, align 2
  br label %return

if.end:
  br label %for.inc

for.inc:
  %5 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %v, align 2
  %next = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %5, i32 0, i32 0
  %6 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %next, align 2
  store %"struct.shell::Variable"* %6, %"struct.shell::Variable"** %v, align 2
  br label %for.cond

for.end:
  store %"struct.shell::Variable"* null, %"struct.shell::Variable"** %retval, align 2
  br label %return

return:
  %7 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %retval, align 2
  ret %"struct.shell::Variable"* %7
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal %"struct.shell::Variable"* @_ZN5shellL4makeEPKc(i8* %name) #0 {
entry:
  %retval = alloca %"struct.shell::Variable"*, align 2
  %name.addr = alloca i8*, align 2
  %fresh = alloca %"struct.shell::Variable"*, align 2
  %i = alloca i16, align 2
  store i8* %name, i8** %name.addr, align 2
  %0 = load i16, i16* @_ZN5shellL4usedE, align 2
  %cmp = icmp eq i16 %0, 6
  br i1 %cmp, label %if.then, label %if.end

if.then:
  store %"struct.shell::Variable"* null, %"struct.shell::Variable"** %retval, align 2
  br label %return

if.end:
  %1 = load i16, i16* @_ZN5shellL4usedE, align 2
  %inc = add nsw i16 %1, 1
  store i16 %inc, i16* @_ZN5shellL4usedE, align 2
  %arrayidx = getelementptr inbounds [6 x %"struct.shell::Variable"], [6 x %"struct.shell::Variable"]* @_ZN5shellL4poolE, i16 0, i16 %1
  store %"struct.shell::Variable"* %arrayidx, %"struct.shell::Variable"** %fresh, align 2
  store i16 0, i16* %i, align 2
  br label %while.cond

while.cond:
  %2 = load i8*, i8** %name.addr, align 2
  %3 = load i16, i16* %i, align 2
  %arrayidx1 = getelementptr inbounds i8, i8* %2, i16 %3
  %4 = load i8, i8* %arrayidx1, align 1
  %tobool = icmp ne i8 %4, 0
  br i1 %tobool, label %land.rhs, label %land.end

land.rhs:
  %5 = load i16, i16* %i, align 2
  %cmp2 = icmp slt i16 %5, 7
  br label %land.end

land.end:
  %6 = phi i1 [ false, %while.cond ], [ %cmp2, %land.rhs ]
  br i1 %6, label %while.body, label %while.end

while.body:
  %7 = load i8*, i8** %name.addr, align 2
  %8 = load i16, i16* %i, align 2
  %arrayidx3 = getelementptr inbounds i8, i8* %7, i16 %8
  %9 = load i8, i8* %arrayidx3, align 1
  %10 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %fresh, align 2
  %name4 = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %10, i32 0, i32 1
  %11 = load i16, i16* %i, align 2
  %arrayidx5 = getelementptr inbounds [8 x i8], [8 x i8]* %name4, i16 0, i16 %11
  store i8 %9, i8* %arrayidx5, align 1
  %12 = load i16, i16* %i, align 2
  %inc6 = add nsw i16 %12, 1
  store i16 %inc6, i16* %i, align 2
  br label %while.cond

while.end:
  %13 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %fresh, align 2
  %name7 = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %13, i32 0, i32 1
  %14 = load i16, i16* %i, align 2
  %arrayidx8 = getelementptr inbounds [8 x i8], [8 x i8]* %name7, i16 0, i16 %14
  store i8 0, i8* %arrayidx8, align 1
  %15 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** @_ZN5shellL9variablesE, align 2
  %16 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %fresh, align 2
  %next = getelementptr inbounds %"struct.shell::Variable", %"struct.shell::Variable"* %16, i32 0, i32 0
  store %"struct.shell::Variable"* %15, %"struct.shell::Variable"** %next, align 2
  %17 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %fresh, align 2
  store %"struct.shell::Variable"* %17, %"struct.shell::Variable"** @_ZN5shellL9variablesE, align 2
  %18 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %fresh, align 2
  store %"struct.shell::Variable"* %18, %"struct.shell::Variable"** %retval, align 2
  br label %return

return:
  %19 = load %"struct.shell::Variable"*, %"struct.shell::Variable"** %retval, align 2
  ret %"struct.shell::Variable"* %19
}

attributes #0 = { mustprogress noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #1 = { noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #2 = { "frame-pointer"="none" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }

!llvm.module.flags = !{!0, !1, !2}
!llvm.ident = !{!3}

!0 = !{i32 1, !"SemanticInterposition", i32 1}
!1 = !{i32 1, !"wchar_size", i32 2}
!2 = !{i32 7, !"PIC Level", i32 2}
!3 = !{!"Debian clang version 14.0.6"}
!4 = distinct !{!4, !5}
!5 = !{!"llvm.loop.mustprogress"}
!6 = distinct !{!6, !5}
!7 = distinct !{!7, !5}
!8 = distinct !{!8, !5}
!9 = distinct !{!9, !5}
!10 = distinct !{!10, !5}
!11 = distinct !{!11, !5}
!12 = distinct !{!12, !5}
!13 = distinct !{!13, !5}
!14 = distinct !{!14, !5}
